#pragma once

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>

/// A program of the user, such as the one that opens documents. While it lives, calls of that name lead to a
/// recorder that writes down its arguments, and no other program is found.
class Rekorder {
public:
    explicit Rekorder(const QString& programm);
    ~Rekorder();
    Q_DISABLE_COPY_MOVE(Rekorder)

    /// The arguments of the next call, which may still be on its way; empty, and a failure of the test, when
    /// none comes.
    QStringList aufruf();

private:
    QTemporaryDir m_ordner;
    QByteArray m_pfad; ///< PATH as it was.
};
