#pragma once

#include <QString>

#include <functional>

#include <sys/types.h>

/// Another program that is writing to a database file: from the end of the constructor to the destructor its
/// transaction is open, and this process waits for it no longer than a moment. What it keeps out are writers,
/// or all.
class Fremdprogramm {
public:
    enum class Sperre { Schreiben, Alles };
    explicit Fremdprogramm(const QString& datei, Sperre sperre = Sperre::Schreiben);
    /// Another one that has done `anweisung` and commits it a little later: whoever wants to write waits for
    /// it.
    Fremdprogramm(const QString& datei, const char* anweisung);
    ~Fremdprogramm();
    Q_DISABLE_COPY_MOVE(Fremdprogramm)

private:
    void starte(const std::function<void(int bescheid)>& arbeit);

    const int m_geduld;
    pid_t m_prozess;
};
