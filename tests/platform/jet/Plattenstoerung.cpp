#include "tests/platform/jet/Plattenstoerung.h"

#include "platform/jet/Engine.h"
#include "platform/jet/sqlite/Connection.h"
#include "tests/support/Child.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdio>
#include <optional>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

enum Ausgang { Ungestoert, Fertig, Abgelehnt, Gestorben, Durchgefallen };

struct Zustand {
    Stoerung art;
    int n;
    int aenderungen = 0;
};
std::optional<Zustand> zustand;

/// Counts a change. \returns whether it is to be disturbed.
bool trifft(bool schreibt)
{
    if (!zustand) return false;
    ++zustand->aenderungen;
    if (zustand->art == Stoerung::Voll) return schreibt && zustand->aenderungen >= zustand->n;
    return zustand->aenderungen == zustand->n;
}

int gestoert(int fehler)
{
    if (zustand->art == Stoerung::Ende) _exit(Gestorben);
    return zustand->art == Stoerung::Voll ? SQLITE_FULL : fehler;
}

/// SQLite's own layer, and ours, which has its functions but for what changes a file.
sqlite3_vfs* eigene = nullptr;
sqlite3_vfs gestoerte;

/// A file of SQLite's own layer lies behind ours in memory.
struct Datei {
    sqlite3_file kopf;
    sqlite3_file* eigentliche() { return reinterpret_cast<sqlite3_file*>(this + 1); }
    static sqlite3_file* von(sqlite3_file* datei) { return reinterpret_cast<Datei*>(datei)->eigentliche(); }
};

/// A function of our files that does what that of SQLite's own does.
template <auto Funktion>
struct Weiter;
template <typename... Werte, int (*sqlite3_io_methods::*Funktion)(sqlite3_file*, Werte...)>
struct Weiter<Funktion> {
    static int ruf(sqlite3_file* datei, Werte... werte)
    {
        sqlite3_file* const eigentliche = Datei::von(datei);
        return (eigentliche->pMethods->*Funktion)(eigentliche, werte...);
    }
};

int schreibe(sqlite3_file* datei, const void* daten, int anzahl, sqlite3_int64 ab)
{
    sqlite3_file* const eigentliche = Datei::von(datei);
    if (!trifft(true)) return eigentliche->pMethods->xWrite(eigentliche, daten, anzahl, ab);
    if (zustand->art != Stoerung::Fehler) eigentliche->pMethods->xWrite(eigentliche, daten, anzahl / 2, ab);
    return gestoert(SQLITE_IOERR_WRITE);
}

int schneide(sqlite3_file* datei, sqlite3_int64 groesse)
{
    if (trifft(false)) return gestoert(SQLITE_IOERR_TRUNCATE);
    return Weiter<&sqlite3_io_methods::xTruncate>::ruf(datei, groesse);
}

int sichere(sqlite3_file*, int)
{
    if (trifft(false)) return gestoert(SQLITE_IOERR_FSYNC);
    return SQLITE_OK; // what ends here is a process, no computer: nothing is lost by it, and much time saved
}

int loesche(sqlite3_vfs*, const char* name, int)
{
    if (trifft(false)) return gestoert(SQLITE_IOERR_DELETE);
    return eigene->xDelete(eigene, name, 0);
}

/// Without what a write-ahead log and mapped memory need, which the engine does not use.
const sqlite3_io_methods dateifunktionen = [] {
    sqlite3_io_methods f{};
    f.iVersion = 1;
    f.xClose = Weiter<&sqlite3_io_methods::xClose>::ruf;
    f.xRead = Weiter<&sqlite3_io_methods::xRead>::ruf;
    f.xWrite = schreibe;
    f.xTruncate = schneide;
    f.xSync = sichere;
    f.xFileSize = Weiter<&sqlite3_io_methods::xFileSize>::ruf;
    f.xLock = Weiter<&sqlite3_io_methods::xLock>::ruf;
    f.xUnlock = Weiter<&sqlite3_io_methods::xUnlock>::ruf;
    f.xCheckReservedLock = Weiter<&sqlite3_io_methods::xCheckReservedLock>::ruf;
    f.xFileControl = Weiter<&sqlite3_io_methods::xFileControl>::ruf;
    f.xSectorSize = Weiter<&sqlite3_io_methods::xSectorSize>::ruf;
    f.xDeviceCharacteristics = Weiter<&sqlite3_io_methods::xDeviceCharacteristics>::ruf;
    return f;
}();

int oeffne(sqlite3_vfs*, const char* name, sqlite3_file* datei, int wie, int* geworden)
{
    const int ergebnis = eigene->xOpen(eigene, name, Datei::von(datei), wie, geworden);
    datei->pMethods = ergebnis == SQLITE_OK ? &dateifunktionen : nullptr;
    return ergebnis;
}

/// Before main() and so before any file is opened, in each program that uses this.
const bool eingehaengt = [] {
    sqlite3_initialize();
    eigene = sqlite3_vfs_find(nullptr);
    gestoerte = *eigene;
    gestoerte.zName = "gestoert";
    gestoerte.szOsFile += sizeof(Datei);
    gestoerte.xOpen = oeffne;
    gestoerte.xDelete = loesche;
    return sqlite3_vfs_register(&gestoerte, 1) == SQLITE_OK;
}();

Ausgang imKind(Stoerung art, int n, const std::function<void()>& arbeit)
{
    const Plattenstoerung stoerung(art, n);
    bool fertig = true;
    try {
        arbeit();
    } catch (const std::runtime_error& fehler) {
        fertig = false;
        if (!stoerung.kam()) ADD_FAILURE() << "undisturbed, and yet: " << fehler.what();
    }
    std::fflush(stdout); // what failed expectations said
    if (testing::Test::HasFailure()) return Durchgefallen;
    if (!stoerung.kam()) return Ungestoert;
    return fertig ? Fertig : Abgelehnt;
}

} // namespace

Plattenstoerung::Plattenstoerung(Stoerung art, int n)
{
    EXPECT_TRUE(eingehaengt);
    zustand = {art, n};
}

Plattenstoerung::~Plattenstoerung()
{
    zustand.reset();
}

bool Plattenstoerung::kam()
{
    return zustand && zustand->aenderungen >= zustand->n;
}

void stoereUeberall(const std::function<void()>& stelleHer, const std::function<void()>& arbeit,
                    const std::function<void(bool)>& pruefe)
{
    for (const Stoerung art : {Stoerung::Fehler, Stoerung::Voll, Stoerung::Ende}) {
        for (int n = 1;; ++n) {
            SCOPED_TRACE(testing::Message() << "way " << int(art) << ", change " << n);
            stelleHer();
            jet::engine().release(); // a child must not inherit connections
            std::fflush(stdout);
            const int ausgang = exitCode(startChild([&] { return int(imKind(art, n, arbeit)); }));
            ASSERT_NE(ausgang, int(Durchgefallen));
            ASSERT_NE(ausgang, -1) << "crashed";
            pruefe(ausgang == Ungestoert || ausgang == Fertig);
            if (testing::Test::HasFailure()) return;
            if (ausgang != Ungestoert) continue;
            EXPECT_GT(n, 1) << "it changed no file";
            break;
        }
    }
}

QString befund(const QString& datei)
{
    jet::sqlite::Connection verbindung(datei, jet::sqlite::Connection::Mode::Existing, 0);
    jet::sqlite::Statement pruefung(verbindung, "PRAGMA integrity_check");
    jet::sqlite::Statement::Run lauf(pruefung);
    return lauf.step() ? QString::fromUtf8(lauf.text(0)) : u"no answer"_s;
}
