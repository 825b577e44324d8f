#include "host/Installation.h"
#include "platform/jet/sqlite/Connection.h"
#include "tests/host/Lauf.h"
#include "tests/support/Print.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

class Zablager : public testing::Test {
protected:
    Lauf einrichten(const QString& betrieb, const QString& jahr)
    {
        return zablager({u"einrichten"_s, ort, u"--betrieb"_s, betrieb, u"--jahr"_s, jahr});
    }
    Lauf sql(const QString& datei, const QByteArray& eingabe, const QStringList& optionen = {})
    {
        return zablager(QStringList{u"sql"_s} + optionen + QStringList{ort + u'/' + datei}, eingabe);
    }
    Lauf bestand(const QString& tag, const QStringList& optionen = {})
    {
        return zablager(QStringList{u"bestand"_s, ort, u"Weizen"_s, u"H1"_s, tag} + optionen);
    }
    /// Every file of the installation with its size and time.
    QStringList dateien() const
    {
        QStringList alle;
        QDirIterator suche(ort, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (suche.hasNext()) {
            const QFileInfo datei(suche.next());
            alle.append(datei.filePath().mid(ort.size() + 1) + u' ' + QString::number(datei.size()) + u' ' +
                        datei.lastModified().toString(Qt::ISODateWithMs));
        }
        alle.sort();
        return alle;
    }

    QTemporaryDir ordner;
    QString ort = ordner.path() + u"/Höfe und Äcker"_s;
};

} // namespace

TEST_F(Zablager, EinrichtenErgaenztWasFehlt)
{
    ASSERT_EQ(einrichten(u"4711"_s, u"2024"_s).ende, 0);
    const QStringList zuerst = dateien();
    EXPECT_EQ(zuerst.join(u'\n').count(u'\n'), 10) << zuerst.join(u'\n').toStdString();
    ASSERT_EQ(einrichten(u"4711"_s, u"2024"_s).ende, 0); // nothing is missing
    EXPECT_EQ(dateien(), zuerst);

    ASSERT_EQ(einrichten(u"4712"_s, u"2025"_s).ende, 0);
    const QStringList danach = dateien();
    for (const QString& datei : zuerst)
        EXPECT_TRUE(danach.contains(datei)) << datei.toStdString();
    EXPECT_EQ(danach.size(), zuerst.size() + 2);
    EXPECT_TRUE(QFile::exists(ort + u"/daten/B4712/Lager.2025"_s));
    EXPECT_TRUE(QFile::exists(ort + u"/programm/ZABStammdaten_2025.mdb"_s));
    const QString formulare = ort + u"/programm/Report/Lagerverwaltung"_s;
    EXPECT_TRUE(QFile::exists(formulare + u"/Lagerjournal.rpt"_s));

    // An installation from before the delivery notes, whose adviser has changed a form.
    ASSERT_TRUE(QDir(formulare + u"/Lieferscheine"_s).removeRecursively());
    QFile geaendert(formulare + u"/Lagerjournal.rpt"_s);
    ASSERT_TRUE(geaendert.open(QIODevice::WriteOnly) && geaendert.write("<report/>") > 0);
    geaendert.close();
    ASSERT_EQ(einrichten(u"4711"_s, u"2024"_s).ende, 0);
    EXPECT_EQ(QDir(formulare + u"/Lieferscheine"_s).entryList(QDir::Files),
              (QStringList{u"LieferscheinA5.rpt"_s, u"Standardlieferschein.rpt"_s}));
    EXPECT_EQ(geaendert.size(), 9);
}

TEST_F(Zablager, JedeDatenbankHatIhreTabellenUndIhrKennwort)
{
    ASSERT_EQ(einrichten(u"4711"_s, u"2024"_s).ende, 0);
    struct Fall {
        QString datei, kennwort;
        QByteArray abfragen;
    };
    const Fall faelle[] = {
        {u"daten/B4711/Lager.2024"_s, u""_s,
         "SELECT ID, Datum, Artikel, Artikelart, LagerortKurzKu, Menge, Buchungsmenge, Preis, Preisfaktor, Einheit, "
         "Buchungsart, BuchungsID, BEErfassungsnummer, Kommentar, Uberstallt_alt, Verfuttert_an, Lieferscheinnummer, "
         "Untergruppe FROM LAGERJOURNAL\n"
         "SELECT ID, OhneVorjahr FROM Einstellungen\n"
         "SELECT Lieferscheinformular, LieferscheinZeile1, LieferscheinZeile2, LieferscheinZeile3, "
         "LieferscheinZusatztext, LieferscheinMitPreis FROM Liefereinstellungen\n"},
        {u"daten/Grundstamm.mdb"_s, u"RT-58KX"_s,
         "SELECT NAME, Einheit, Preis, Preisfaktor, Untergruppe FROM Dungermittel WHERE Sperre=False \n"
         "SELECT * FROM Pflanzenschutzmittel WHERE Sperre=False  ORDER by NAME ASC\n"
         "SELECT * FROM Saatgut WHERE Sperre=False  ORDER by NAME ASC\n"
         "SELECT * FROM WIRTDUNG WHERE Sperre=False  ORDER by NAME ASC\n"
         "SELECT * FROM Zwischenfruechte WHERE Sperre=False   ORDER by NAME ASC\n"
         "SELECT * FROM Kulturen WHERE Sperre=False  ORDER by NAME ASC\n"
         "SELECT * FROM Futtermittel WHERE Sperre=False  ORDER by NAME ASC\n"
         "SELECT * FROM Treibstoffe WHERE Sperre=False  ORDER by NAME ASC\n"
         "SELECT * FROM SonstigeArtikel WHERE Sperre=False  ORDER by NAME ASC\n"
         "SELECT * FROM Arzneimittel WHERE Sperre=False  ORDER by NAME ASC\n"
         "SELECT NAME, VORNAME, Strasse, Ort, PLZ FROM HANDLER WHERE SPERRE = False order by KURZKU\n"},
        {u"anlagen/Anlagen.mdb"_s, u"volmira"_s,
         "Select Name, KurzKu From Objekte where (Objektart = 'Lager' Or Objektart = 'Düngersammelstelle')  AND "
         "Anzeigen=True order by Name\n"},
        {u"programm/ZABStammdaten_2024.mdb"_s, u"RT-58KX"_s,
         "SELECT NAME, Gruppe, Giftig, Regnr FROM PFLANZENSCHUTZMITTEL\n"
         "SELECT Regnr, RegNrAlt, BEZEICHNUNG FROM REGISTER WHERE NOT ISNULL(Aufbrauchsfrist) ORDER BY "
         "Aufbrauchsfrist\n"},
    };
    for (const Fall& fall : faelle) {
        const Lauf lauf = sql(fall.datei, fall.abfragen, {u"--kennwort"_s, fall.kennwort});
        EXPECT_EQ(lauf.ende, 0) << lauf.fehler.toStdString();
        EXPECT_EQ(lauf.ausgabe.count(u'\n'), fall.abfragen.count('\n')); // a header line each, no rows
        if (fall.kennwort.isEmpty()) continue;
        EXPECT_EQ(sql(fall.datei, fall.abfragen, {u"--kennwort"_s, u"falsch"_s}).fehler,
                  u"Kein zulässiges Kennwort. Datei: '"_s + ort + u'/' + fall.datei + u"'. (Fehler 3031)\n"_s);
    }
}

TEST_F(Zablager, UebertragUndBestandGehenDurchDieBibliothek)
{
    ASSERT_EQ(einrichten(u"4711"_s, u"2023"_s).ende, 0);
    ASSERT_EQ(einrichten(u"4711"_s, u"2024"_s).ende, 0);
    const QByteArray zukauf = "INSERT INTO LAGERJOURNAL (Datum, Artikel, LagerortKurzKu, Menge) VALUES ";
    ASSERT_EQ(sql(u"daten/B4711/Lager.2023"_s, zukauf + "(#3/5/2023#, 'Weizen', 'H1', 1000000.5)").ende, 0);
    EXPECT_EQ(bestand(u"1.1.2024"_s).ausgabe, u"0\n"_s);

    const Lauf uebertrag = zablager({u"uebertrag"_s, ort, u"--ab"_s, u"2023"_s});
    EXPECT_EQ(uebertrag.ende, 0);
    EXPECT_EQ(uebertrag.ausgabe + uebertrag.fehler, u"Bestände übertragen: 2023 nach 2024\n"_s);

    jet::sqlite::Connection(ort + u"/daten/B4711/Lager.2024"_s, jet::sqlite::Connection::Mode::Existing, 0)
        .execute("INSERT INTO Lagerjournal (Datum, Artikel, LagerortKurzKu, Menge)"
                 " VALUES ('2024-01-01', 'Hafer', 'H1', '12 dt')"); // by another program
    const QStringList vorher = dateien();
    EXPECT_EQ(bestand(u"01.01.2024"_s).ausgabe, u"1000000.5\n"_s);
    EXPECT_EQ(bestand(u"4.3.2023"_s).ausgabe, u"0\n"_s);
    const QString unbekannt = u"In '"_s + ort + u"/daten/B4711/Lager.2024' nennt keine Buchung den "_s;
    const struct {
        QString artikel, lagerort, tag;
        int ende;
        QString ausgabe, fehler; ///< The whole output, and how the messages begin.
    } fragen[] = {
        {u"Weizen"_s, u"H1"_s, u"1.1.2019"_s, 1, u""_s,
         u"Der Dateiname "_s + ort + u"/daten/B4711/Lager.2019 existiert nicht! (Fehler 53)"_s},
        {u"Weizne"_s, u"H1"_s, u"1.1.2024"_s, 0, u"0\n"_s, unbekannt + u"Artikel 'Weizne'.\n"_s},
        {u"weizen"_s, u"H9"_s, u"1.1.2024"_s, 0, u"0\n"_s, unbekannt + u"Lagerort 'H9'.\n"_s},
        {u"Bauer's Mix"_s, u"H1"_s, u"1.1.2024"_s, 1, u""_s, u"Syntaxfehler"_s},
        {u"Hafer"_s, u"H1"_s, u"1.1.2024"_s, 1, u""_s,
         u"Datentyp-Konvertierungsfehler. Feld: 'Menge'. Datei: '"_s + ort +
             u"/daten/B4711/Lager.2024'. ID: '2'. (Fehler 3421)"_s},
    };
    for (const auto& frage : fragen) {
        const Lauf lauf = zablager({u"bestand"_s, ort, frage.artikel, frage.lagerort, frage.tag});
        EXPECT_EQ(lauf.ende, frage.ende) << frage.artikel.toStdString();
        EXPECT_EQ(lauf.ausgabe, frage.ausgabe) << frage.artikel.toStdString();
        EXPECT_TRUE(lauf.fehler.startsWith(frage.fehler)) << lauf.fehler.toStdString();
    }
    EXPECT_EQ(dateien(), vorher); // asking writes nothing

    ASSERT_EQ(einrichten(u"4711"_s, u"2027"_s).ende, 0);
    ASSERT_EQ(einrichten(u"4711"_s, u"2028"_s).ende, 0);
    ASSERT_EQ(einrichten(u"4711"_s, u"2029"_s).ende, 0); // 2028 has nothing to carry into it
    sql(u"daten/B4711/Lager.2028"_s, "INSERT INTO Einstellungen (OhneVorjahr) VALUES (True)");
    EXPECT_EQ(zablager({u"uebertrag"_s, ort, u"--ab"_s, u"2024"_s}).ausgabe,
              u"Bestände übertragen: 2024 nach 2027 (ohne 2025, 2026); 2027 nach 2028: nicht übernommen, so ist es im"
              u" Jahr eingestellt\n"_s);
    EXPECT_EQ(zablager({u"uebertrag"_s, ort, u"--ab"_s, u"2028"_s}).ende, 0);
    EXPECT_EQ(zablager({u"uebertrag"_s, ort, u"--ab"_s, u"2030"_s}).ende, 1);

    const QString neuerOrt = ort + u" (Kopie)"_s; // the settings follow
    ASSERT_TRUE(QDir().rename(ort, neuerOrt));
    ort = neuerOrt;
    EXPECT_EQ(bestand(u"1.1.2024"_s).ausgabe, u"1000000.5\n"_s);

    ASSERT_EQ(einrichten(u"999"_s, u"2024"_s).ende, 0);
    const Lauf welcher = bestand(u"1.1.2024"_s);
    EXPECT_EQ(welcher.ende, 2);
    EXPECT_TRUE(welcher.fehler.contains(u"999, 4711"_s)) << welcher.fehler.toStdString();
    EXPECT_EQ(bestand(u"1.1.2024"_s, {u"--betrieb"_s, u"4711"_s}).ausgabe, u"1000000.5\n"_s);
}

TEST_F(Zablager, OeffnenZeigtDenBildschirmUndLegtDasJahrAn)
{
    ASSERT_EQ(einrichten(u"4711"_s, u"2024"_s).ende, 0);
    const QString bild = ordner.path() + u"/bild.png"_s;
    const auto einstellungen = [this] {
        QFile datei(ort + u"/einstellungen/ZAB - Programme.ini"_s);
        return datei.open(QIODevice::ReadOnly) ? datei.readAll() : QByteArray();
    };
    const QByteArray vorher = einstellungen();
    const Lauf lauf = zablager({u"oeffnen"_s, ort, u"--stichdatum"_s, u"5.3.2025"_s, u"--bild"_s, bild});
    EXPECT_EQ(lauf.ende, 0) << lauf.fehler.toStdString();
    EXPECT_GT(QFileInfo(bild).size(), 10'000);
    EXPECT_EQ(einstellungen(), vorher); // how the user left his window stays
    EXPECT_TRUE(QFile::exists(ort + u"/daten/B4711/Lager.2025"_s));
    EXPECT_EQ(zablager({u"oeffnen"_s, ort, u"--stichdatum"_s, u"5.3.25"_s, u"--bild"_s, bild}).ende, 2);
    QProcess vomMenue; // without a terminal
    vomMenue.setReadChannel(QProcess::StandardError);
    vomMenue.start(QStringLiteral(ZABLAGER_PROGRAM), {u"oeffnen"_s, ort, u"--stichdatum"_s, u"5.3.25"_s});
    EXPECT_TRUE(vomMenue.waitForReadyRead());
    EXPECT_FALSE(vomMenue.waitForFinished(500)) << "a box waits for the user";
    vomMenue.kill();
    EXPECT_TRUE(vomMenue.waitForFinished());
    ASSERT_TRUE(QDir(ort).mkdir(u"einstellungen/ZAB - Programme.ini.lock"_s)); // whatever is written now raises a box
    EXPECT_EQ(zablager({u"oeffnen"_s, ort, u"--stichdatum"_s, u"5.3.2025"_s, u"--bild"_s, bild}).ende, 0);

    QFile jahr(ort + u"/daten/B4711/Lager.2025"_s);
    ASSERT_TRUE(jahr.open(QIODevice::WriteOnly) && jahr.write("Kein Journal") > 0);
    jahr.close();
    const Lauf kaputt = zablager({u"oeffnen"_s, ort, u"--stichdatum"_s, u"5.3.2025"_s, u"--bild"_s, bild});
    EXPECT_EQ(kaputt.ende, 1);
    EXPECT_TRUE(kaputt.fehler.endsWith(u"(Fehler 3343)\n"_s)) << kaputt.fehler.toStdString(); // the box's own number

    for (const char* display : {"", ":877"}) { // none, and one that does not answer
        const Lauf blind = zablager({u"oeffnen"_s, ort}, {}, [display] {
            unsetenv("QT_QPA_PLATFORM");
            setenv("DISPLAY", display, 1);
            unsetenv("WAYLAND_DISPLAY");
        });
        EXPECT_EQ(blind.ende, 1);
        EXPECT_TRUE(blind.fehler.startsWith(u"Die Lagerverwaltung braucht einen Bildschirm"_s))
            << blind.fehler.toStdString();
    }
}

TEST_F(Zablager, SqlZeigtZeilenAlsTabelleUndAlsJson)
{
    ASSERT_EQ(einrichten(u"4711"_s, u"2024"_s).ende, 0);
    const QString datei = u"daten/B4711/Lager.2024"_s;
    const Lauf lauf = sql(datei, "CREATE TABLE T (Z Double, A Text(20), W YesNo, D Date, N Long)\r\n"
                                 "\n  \n"
                                 "INSERT INTO T VALUES (0.25, 'Gülle \"1\"\t\\', True, #12/31/2024#, NULL)\n"
                                 "INSERT INTO T VALUES (1000000, NULL, False, #12/31/2024 13:45:00#, -7)\n"
                                 "SELECT * FROM T\n"
                                 "SELECT Count(*) AS Anzahl FROM T WHERE N = 8");
    EXPECT_EQ(lauf.fehler, u""_s);
    EXPECT_EQ(lauf.ausgabe, u"Z\tA\tW\tD\tN\n"
                            u"0.25\tGülle \"1\"\\t\\\\\t-1\t2024-12-31\t\n"
                            u"1000000\t\t0\t2024-12-31T13:45:00\t-7\n"
                            u"Anzahl\n0\n"_s);
    EXPECT_EQ(sql(datei, "SELECT * FROM T", {u"--json"_s}).ausgabe,
              u"{\"Z\":0.25,\"A\":\"Gülle \\\"1\\\"\\t\\\\\",\"W\":true,\"D\":\"2024-12-31\",\"N\":null}\n"
              u"{\"Z\":1000000,\"A\":null,\"W\":false,\"D\":\"2024-12-31T13:45:00\",\"N\":-7}\n"_s);
}

TEST_F(Zablager, SqlHaeltBeiDerErstenAblehnungAn)
{
    ASSERT_EQ(einrichten(u"4711"_s, u"2024"_s).ende, 0);
    const QString datei = u"daten/B4711/Lager.2024"_s;
    const Lauf lauf = sql(datei, "INSERT INTO Einstellungen (OhneVorjahr) VALUES (True)\n"
                                 "SELECT ID FROM Einstellungen\n\n"
                                 "SELECT ID FROM\n"
                                 "DELETE * FROM Einstellungen\n");
    EXPECT_EQ(lauf.ende, 1);
    EXPECT_EQ(lauf.ausgabe, u"ID\n1\n"_s);
    EXPECT_TRUE(lauf.fehler.startsWith(u"Anweisung 3, Zeile 4, Zeichen 15: Syntaxfehler in FROM-Klausel."_s))
        << lauf.fehler.toStdString();
    EXPECT_EQ(sql(datei, "SELECT Count(*) AS Z FROM Einstellungen").ausgabe, u"Z\n1\n"_s);

    const struct {
        const char* name;
        QByteArray eingabe;
    } faelle[] = {
        {"zwei Anweisungen", "SELECT 1 AS E FROM Einstellungen; DELETE * FROM Einstellungen"},
        {"NUL", QByteArray("DELETE * FROM Einstellungen\0 WHERE ID = 2", 40)},
        {"NUL in einem Text", QByteArray("SELECT ID FROM Einstellungen WHERE 'a\0b' = 'a'", 46)},
        {"kein UTF-8", "SELECT ID FROM Einstellungen WHERE 'a' = '\xe4'"},
        {"ein halbes Zeichen", "SELECT ID FROM Einstellungen \xc3"},
        {"10 MB Zeichen", "SELECT ID FROM Einstellungen WHERE '" + QByteArray(10'000'000, 'a')},
        {"10 000 Klammern",
         "SELECT ID FROM Einstellungen WHERE " + QByteArray(10'000, '(') + "1" + QByteArray(10'000, ')')},
        {"die Sprache darunter", "PRAGMA journal_mode"},
        {"Unsinn", "\x01\x02;;'\"#"},
    };
    for (const auto& fall : faelle) {
        SCOPED_TRACE(fall.name);
        const Lauf abgelehnt = sql(datei, fall.eingabe + '\n');
        EXPECT_EQ(abgelehnt.ende, 1);
        EXPECT_TRUE(abgelehnt.fehler.startsWith(u"Anweisung 1, Zeile 1"_s)) << abgelehnt.fehler.left(500).toStdString();
        EXPECT_LT(abgelehnt.fehler.size(), 2000);
        EXPECT_TRUE(abgelehnt.fehler.endsWith(u")\n"_s)); // the number and the end of the line, whatever stood in it
    }
    EXPECT_EQ(sql(datei, "SELECT Count(*) AS Z FROM Einstellungen").ausgabe, u"Z\n1\n"_s);
    EXPECT_EQ(sql(u"fehlt.mdb"_s, "").ende, 1);
    EXPECT_FALSE(QFile::exists(ort + u"/fehlt.mdb"_s));
}

TEST_F(Zablager, EinFalscherAufrufWirdErklaertUndTutNichts)
{
    const struct {
        QStringList worte;
        QString erklaerung;
    } faelle[] = {
        {{}, u"Es fehlt der Befehl."_s},
        {{u"fegen"_s}, u"Den Befehl 'fegen' gibt es nicht."_s},
        {{u"einrichten"_s}, u"VERZEICHNIS"_s},
        {{u"einrichten"_s, ort}, u"--betrieb NR [--jahr JAHR]"_s},
        {{u"einrichten"_s, ort, u"--betrieb"_s, u"x"_s}, u"'x' ist keine Betriebsnummer"_s},
        {{u"einrichten"_s, ort, u"--betrieb"_s, u"0815"_s}, u"'0815' ist keine Betriebsnummer"_s},
        {{u"einrichten"_s, ort, u"--betrieb"_s, u"4711/../1"_s}, u"keine Betriebsnummer"_s},
        {{u"einrichten"_s, ort, u"--betrieb"_s, u"1"_s, u"--jahr"_s, u"24"_s}, u"'24' ist kein Jahr"_s},
        {{u"einrichten"_s, ort, u"--farbe"_s, u"rot"_s}, u"Die Option 'farbe' gibt es nicht."_s},
        {{u"uebertrag"_s, ort}, u"--ab JAHR"_s},
        {{u"uebertrag"_s, ort, u"--ab"_s}, u"Nach '--ab' fehlt der Wert."_s},
        {{u"bestand"_s, ort, u"Weizen"_s, u"H1"_s, u"30.2.2024"_s}, u"'30.2.2024' ist kein Datum"_s},
        {{u"einrichten"_s, ort, u"--betrieb"_s, u"1"_s, u"--jahr"_s, u"+2024"_s}, u"'+2024' ist kein Jahr"_s},
    };
    for (const auto& fall : faelle) {
        const Lauf lauf = zablager(fall.worte);
        SCOPED_TRACE(lauf.fehler.toStdString());
        EXPECT_EQ(lauf.ende, 2);
        EXPECT_TRUE(lauf.fehler.contains(fall.erklaerung));
        EXPECT_EQ(lauf.ausgabe, u""_s);
    }
    EXPECT_FALSE(QDir(ort).exists());

    const Lauf nirgends =
        zablager({u"bestand"_s, ort, u"Weizen"_s, u"H1"_s, u"1.1.2024"_s}); // well called, but nothing there
    EXPECT_EQ(nirgends.ende, 1);
    EXPECT_TRUE(nirgends.fehler.contains(u"ist kein Betrieb eingerichtet"_s)) << nirgends.fehler.toStdString();

    const Lauf hilfe = zablager({u"bestand"_s, u"--hilfe"_s});
    EXPECT_EQ(hilfe.ende, 0);
    EXPECT_TRUE(hilfe.ausgabe.contains(u"Aufruf: "_s) && hilfe.ausgabe.contains(u"Optionen:"_s))
        << hilfe.ausgabe.toStdString();
    for (const QString& befehl : {u"einrichten"_s, u"oeffnen"_s, u"bestand"_s, u"uebertrag"_s, u"sql"_s})
        EXPECT_TRUE(zablager({u"--hilfe"_s}).ausgabe.contains(befehl));
}

TEST_F(Zablager, EinVerzeichnisDasKeinesSeinKannIstEinFehler)
{
    QFile datei(ordner.path() + u"/belegt"_s);
    ASSERT_TRUE(datei.open(QIODevice::WriteOnly));
    ort = datei.fileName();
    const Lauf lauf = einrichten(u"4711"_s, u"2024"_s);
    EXPECT_EQ(lauf.ende, 1);
    EXPECT_TRUE(lauf.fehler.contains(ort)) << lauf.fehler.toStdString();

    ort += u" nicht"_s; // on a full disk the file is named, not the draft that it is built as
    const Lauf voll = zablager({u"einrichten"_s, ort, u"--betrieb"_s, u"1"_s}, {}, [] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit grenze{4'096, 4'096};
        setrlimit(RLIMIT_FSIZE, &grenze);
    });
    EXPECT_EQ(voll.ende, 1);
    EXPECT_TRUE(voll.fehler.contains(u"/programm/Lager.vorlage'"_s)) << voll.fehler.toStdString();
}
