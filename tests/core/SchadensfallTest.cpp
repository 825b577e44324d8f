// What the carry-forward and the stock question do with files that are missing, damaged, foreign or locked.

#include "core/Bestand.h"
#include "core/JahresUbertrag.h"
#include "platform/system/Files.h"
#include "tests/platform/jet/Fremdprogramm.h"
#include "tests/platform/jet/Plattenstoerung.h"
#include "tests/support/Child.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <zablager/FileError.h>

#include <QDir>
#include <QFile>

#include <map>

using namespace Qt::StringLiterals;
using jet::ErrorNumber;

namespace {

void ersetze(const QString& datei, const QByteArray& inhalt)
{
    jet::engine().release();
    QFile ziel(datei);
    ASSERT_TRUE(ziel.open(QIODevice::WriteOnly));
    ASSERT_EQ(ziel.write(inhalt), inhalt.size());
}

QByteArray inhalt(const QString& datei)
{
    QFile quelle(datei);
    return quelle.open(QIODevice::ReadOnly) ? quelle.readAll() : QByteArray();
}

} // namespace

TEST(Schadensfall, EineUnlesbareDateiBeendetDenUebertragBevorErSchreibt)
{
    const Testbetrieb hof(QDate(2024, 6, 1));
    hof.bucht(2024, "05.05. | H1 | Weizen | 100 | Zukauf");
    hof.bucht(2025, "");
    hof.bucht(2026, "");
    const QByteArray schaden = inhalt(hof.journaldatei(2026)).first(700);
    ersetze(hof.journaldatei(2026), schaden);
    try {
        JahresUbertrag();
        ADD_FAILURE() << "must be refused";
    } catch (const jet::Error& fehler) {
        EXPECT_EQ(fehler.number(), ErrorNumber::UnknownFormat) << fehler.what();
        EXPECT_TRUE(fehler.text().contains(u"Lager.2026"_s)) << fehler.what();
    }
    EXPECT_EQ(hof.journal(2025), zeilen("")); // the damaged year was found before 2025 was written
    EXPECT_EQ(inhalt(hof.journaldatei(2026)), schaden);
    EXPECT_EQ(QDir(hof.ort().betriebsordner(u"4711"_s)).entryList(QDir::Files),
              (QStringList{u"Lager.2024"_s, u"Lager.2025"_s, u"Lager.2026"_s}));
}

TEST(Schadensfall, EinEintragDerKeineDateiIstBeendetDenUebertragUndWirdGenannt)
{
    struct Fall {
        const char* name;
        std::function<void(const QString& datei, const QString& ordner)> stoere;
        const char* genannt;
    };
    const Fall faelle[] = {
        {"ein Verzeichnis", [](const QString& datei, const QString&) { QDir().mkdir(datei); }, "Lager.2025"},
        {"eine Verknüpfung ins Leere",
         [](const QString& datei, const QString&) { QFile::link(u"/nirgends/Lager.2025"_s, datei); }, "Lager.2025"},
        {"ein gesperrter Ordner",
         [](const QString&, const QString& ordner) { QFile::setPermissions(ordner, QFile::Permissions()); }, "B4711"},
    };
    for (const Fall& fall : faelle) {
        SCOPED_TRACE(fall.name);
        const Testbetrieb hof(QDate(2024, 6, 1));
        hof.bucht(2024, "05.05. | H1 | Weizen | 100 | Zukauf");
        hof.bucht(2026, "");
        jet::engine().release();
        QFile::setPermissions(hof.ort().verzeichnis(), QFile::Permissions(0x7755));
        const QString ordner = hof.ort().betriebsordner(u"4711"_s);
        fall.stoere(ordner + u"/Lager.2025"_s, ordner);
        const pid_t kind = startChild([&] {
            constexpr uid_t Nobody = 65534; // root may look everywhere
            if (geteuid() == 0 && setuid(Nobody) != 0) return 255;
            try {
                return JahresUbertrag() ? 1 : 2;
            } catch (const std::runtime_error& fehler) { // of either kind
                return QString::fromUtf8(fehler.what()).contains(QLatin1StringView(fall.genannt)) ? 0 : 3;
            }
        });
        EXPECT_EQ(exitCode(kind), 0);
        QFile::setPermissions(ordner, QFile::Permissions(0x7755));
        EXPECT_EQ(hof.journal(2026), zeilen(""));
    }
}

TEST(Schadensfall, EinKennwortInDerVorlageBeendetNurDieBestandsfrage)
{
    const Testbetrieb hof(QDate(2024, 6, 1));
    for (const auto& [kennwort, uebertraegt] : {std::pair{u";pwd=quenlor"_s, true}, {u";pwd=anderes"_s, false}}) {
        sys::Kill(hof.journaldatei(2024));
        jet::engine()
            .CreateDatabase(hof.journaldatei(2024), kennwort)
            ->Execute(u"CREATE TABLE LAGERJOURNAL (ID Counter PRIMARY KEY, Datum Date, Artikel Text(50), Artikelart "
                      u"Text(25), LagerortKurzKu Text(15), Menge Double, Preis Double, Preisfaktor Text(3), Einheit "
                      u"Text(15))"_s);
        if (uebertraegt) {
            EXPECT_TRUE(JahresUbertrag());
        } else {
            EXPECT_THROW(JahresUbertrag(), jet::Error);
        }
        EXPECT_THROW(BestandErmitteln(u"Weizen"_s, u"H1"_s, QDate(2024, 5, 1)), jet::Error);
    }
}

TEST(Schadensfall, EinGesperrtesJahrIstEinFehlerUndDerNaechsteLaufHoltEsNach)
{
    const Testbetrieb hof(QDate(2024, 6, 1));
    hof.bucht(2024, "05.05. | H1 | Weizen | 100 | Zukauf");
    hof.bucht(2025, "");
    {
        const Fremdprogramm anderes(hof.journaldatei(2025));
        EXPECT_EQ(BestandErmitteln(u"Weizen"_s, u"H1"_s, QDate(2025, 5, 1)), 0); // reading goes on
        try {
            JahresUbertrag();
            ADD_FAILURE() << "a locked file must be refused";
        } catch (const jet::Error& fehler) {
            EXPECT_EQ(fehler.number(), ErrorNumber::Locked) << fehler.what();
        }
    }
    { // who comes second sees what the other one wrote
        const Fremdprogramm anderes(hof.journaldatei(2025),
                                    "INSERT INTO LAGERJOURNAL (Datum, Artikel, LagerortKurzKu, Menge, Buchungsart)"
                                    " VALUES (#1/1/2025#, 'Weizen', 'H1', 7, 'Anfangsbestand')");
        EXPECT_TRUE(JahresUbertrag());
    }
    EXPECT_EQ(hof.journal(2025), zeilen("01.01. | H1 | Weizen | 100 | Anfangsbestand"));
}

TEST(Schadensfall, JedeStoerungDerPlatteLaesstGanzeJahreUndDerNaechsteLaufHoltNach)
{
    constexpr int Jahre[] = {2022, 2023, 2024};
    const Testbetrieb hof(QDate(2022, 6, 1));
    hof.bucht(2022, "05.05. | H1 | Weizen | 100 | Zukauf\n"
                    "06.05. | H1 | Mais | 20 | Zukauf");
    hof.bucht(2023, "01.01. | H1 | Mais | 5 | Anfangsbestand\n" // one row is changed, one is new
                    "07.05. | H2 | Mais | 1 | Zukauf");
    hof.bucht(2024, "");
    std::map<int, QStringList> vorher, nachher;
    const auto kopie = [&](int jahr) { return hof.ort().verzeichnis() + u"/Kopie."_s + QString::number(jahr); };
    for (const int jahr : Jahre) {
        vorher[jahr] = hof.journal(jahr);
        sys::FileCopy(hof.journaldatei(jahr), kopie(jahr));
    }
    ASSERT_TRUE(JahresUbertrag());
    for (const int jahr : Jahre)
        nachher[jahr] = hof.journal(jahr);
    ASSERT_EQ(nachher[2024].size(), 3);

    const auto stelleHer = [&] {
        for (const int jahr : Jahre) {
            sys::FileCopy(kopie(jahr), hof.journaldatei(jahr));
        }
    };
    const auto uebertrage = [] {
        try {
            JahresUbertrag();
        } catch (const jet::Error& fehler) {
            EXPECT_TRUE(fehler.text().contains(u"Lager.202"_s)) << fehler.what();
            throw;
        }
    };
    stoereUeberall(stelleHer, uebertrage, [&](bool fertig) {
        for (const int jahr : Jahre) {
            const auto gefunden = hof.journal(jahr);
            EXPECT_TRUE(gefunden == nachher[jahr] || (!fertig && gefunden == vorher[jahr])) << jahr;
            EXPECT_EQ(befund(hof.journaldatei(jahr)), u"ok"_s);
        }
        EXPECT_TRUE(JahresUbertrag());
        for (const int jahr : Jahre)
            EXPECT_EQ(hof.journal(jahr), nachher[jahr]);
    });
}
