#include "tests/support/Fremdprogramm.h"

#include "platform/jet/Engine.h"
#include "platform/jet/sqlite/Connection.h"
#include "platform/system/Path.h"
#include "tests/support/Child.h"

#include <csignal>
#include <cstdio>
#include <stdexcept>
#include <unistd.h>

namespace {

int halteFest(const QString& datei, Fremdprogramm::Sperre sperre, int bescheid)
{
    try {
        jet::sqlite::Connection verbindung(sys::localPath(datei), jet::sqlite::Connection::Mode::Existing, 0);
        verbindung.execute(sperre == Fremdprogramm::Sperre::Alles ? "BEGIN EXCLUSIVE" : "BEGIN IMMEDIATE");
        if (write(bescheid, "!", 1) == 1) pause();
    } catch (const jet::Error& fehler) {
        std::fprintf(stderr, "the other program: %s\n", fehler.what());
    }
    return 1;
}

} // namespace

Fremdprogramm::Fremdprogramm(const QString& datei, Sperre sperre) : m_geduld(jet::engine().LockTimeout())
{
    jet::engine().release(); // the child must not inherit connections
    int rohr[2];
    if (pipe(rohr) != 0) throw std::runtime_error("no pipe");
    m_prozess = startChild([&] { return halteFest(datei, sperre, rohr[1]); });
    close(rohr[1]);
    char zeichen = 0;
    const bool bereit = read(rohr[0], &zeichen, 1) == 1;
    close(rohr[0]);
    if (!bereit) throw std::runtime_error("the other program could not open the file");
    jet::engine().setLockTimeout(50); // ms
}

Fremdprogramm::~Fremdprogramm()
{
    kill(m_prozess, SIGKILL);
    exitCode(m_prozess);
    jet::engine().setLockTimeout(m_geduld);
}
