#include "tests/platform/jet/Fremdprogramm.h"

#include "platform/jet/Engine.h"
#include "platform/jet/sqlite/Connection.h"
#include "platform/system/Path.h"
#include "tests/support/Child.h"

#include <csignal>
#include <cstdio>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

using jet::sqlite::Connection;

void melde(int bescheid)
{
    if (write(bescheid, "!", 1) != 1) throw std::runtime_error("nobody listens");
}

} // namespace

Fremdprogramm::Fremdprogramm(const QString& datei, Sperre sperre) : m_geduld(jet::engine().LockTimeout())
{
    starte([&](int bescheid) {
        Connection verbindung(sys::localPath(datei), Connection::Mode::Existing, 0);
        verbindung.execute(sperre == Sperre::Alles ? "BEGIN EXCLUSIVE" : "BEGIN IMMEDIATE");
        melde(bescheid);
        pause();
    });
    jet::engine().setLockTimeout(50); // ms
}

Fremdprogramm::Fremdprogramm(const QString& datei, const char* anweisung)
    : m_geduld(jet::engine().LockTimeout())
{
    starte([&](int bescheid) {
        const auto verbindung = jet::engine().OpenDatabase(datei, u";pwd=quenlor"_s);
        verbindung->BeginTrans();
        verbindung->Execute(QString::fromUtf8(anweisung));
        melde(bescheid);
        constexpr useconds_t EinWenig = 200'000; // µs, for the other one to come to the lock
        usleep(EinWenig);
        verbindung->Close();
    });
}

void Fremdprogramm::starte(const std::function<void(int bescheid)>& arbeit)
{
    jet::engine().release(); // the child must not inherit connections
    int rohr[2];
    if (pipe(rohr) != 0) throw std::runtime_error("no pipe");
    m_prozess = startChild([&] {
        try {
            arbeit(rohr[1]);
        } catch (const std::runtime_error& fehler) {
            std::fprintf(stderr, "the other program: %s\n", fehler.what());
        }
        return 1;
    });
    close(rohr[1]);
    char zeichen = 0;
    const bool bereit = read(rohr[0], &zeichen, 1) == 1;
    close(rohr[0]);
    if (!bereit) throw std::runtime_error("the other program could not open the file");
}

Fremdprogramm::~Fremdprogramm()
{
    kill(m_prozess, SIGKILL);
    exitCode(m_prozess);
    jet::engine().setLockTimeout(m_geduld);
}
