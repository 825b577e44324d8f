#pragma once

#include "host/Staende.h"

#include <QTemporaryDir>

/// A farm as some of its years were at a moment, in a folder of its own that goes with this object: to
/// look at. Its years cannot be written, and the settings that a screen leaves go with it too.
class Rueckblick {
public:
    /// \throws sys::FileError when it cannot be copied.
    Rueckblick(const Installation& ort, const QString& betrieb, const std::map<int, Sicherung>& staende);
    ~Rueckblick();
    Q_DISABLE_COPY_MOVE(Rueckblick)

    const Installation& ort() const { return m_ort; }

private:
    QTemporaryDir m_ordner;
    Installation m_ort;
    QStringList m_gesperrte; // what may not be written as long as somebody looks at it
};
