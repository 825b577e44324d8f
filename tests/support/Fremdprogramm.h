#pragma once

#include <QString>

#include <sys/types.h>

/// Another program that is writing to a database file: from the end of the constructor to the destructor its
/// transaction is open, and this process waits for it no longer than a moment. What it keeps out are writers, or all.
class Fremdprogramm {
public:
    enum class Sperre { Schreiben, Alles };
    explicit Fremdprogramm(const QString& datei, Sperre sperre = Sperre::Schreiben);
    ~Fremdprogramm();
    Q_DISABLE_COPY_MOVE(Fremdprogramm)

private:
    const int m_geduld;
    pid_t m_prozess;
};
