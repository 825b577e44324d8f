#pragma once

#include "platform/system/ErrorReport.h"

#include <QString>

/// The database that a print is made from: the rows of the journal view, enriched with the group and the
/// toxicity of plant-protection products. Each step may be refused by itself and is reported by itself:
/// without the master data of the year a print has no toxicity, but it has its rows.
class Auswertungsdatei {
public:
    /// `datei`: its full name; it is made anew.
    explicit Auswertungsdatei(const QString& datei) : m_datei(datei) {}

    const QString& datei() const { return m_datei; }
    /// Builds it from the open journal. `eingrenzung`: the WHERE clause of the journal view. \returns false
    /// when the user left at an error; then nothing of it remains.
    [[nodiscard]] bool baue(const QString& eingrenzung, const QString& Jahr) const;
    void loesche() const; ///< Where there is one. \throws sys::FileError.

private:
    void legeAn() const;
    void kopiere(const QString& eingrenzung) const;
    void ergaenzeSpalte(const QString& spalte) const;
    [[nodiscard]] sys::Outcome reichereAn(const QString& Jahr) const;

    QString m_datei;
};
