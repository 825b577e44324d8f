// Printing of the two views: what the PDF says, and what the file behind it holds.

#include "tests/overview/Hauptbildschirm.h"

#include "core/Modulzustand.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/OptionButton.h"
#include "platform/jet/Engine.h"
#include "platform/report/PrintControl.h"
#include "platform/system/Files.h"
#include "tests/support/Fremdprogramm.h"
#include "tests/support/Pdf.h"

#include <QFile>
#include <QGuiApplication>
#include <QTabWidget>

#include <algorithm>
#include <csignal>
#include <optional>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

class Druck : public Hauptbildschirm {
protected:
    Druck()
    {
        hof.bucht(2024, "01.06. | H1 | Gamma | 5 | Zukauf\n02.06. | H1 | Delta | 1 | Zukauf");
        hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Artikelart = 'Pflanzenschutzmittel', Einheit = 'l'"
                            u" WHERE Artikel IN ('Gamma','Delta')"_s);
        const auto stamm = jet::engine().OpenDatabase(stammdaten(), u";pwd=RT-58KX"_s);
        stamm->Execute(u"INSERT INTO PFLANZENSCHUTZMITTEL (NAME, Gruppe, Giftig) VALUES ('gamma', 'Herbizid', '"_s +
                       QString(10'000, u'x') + u"')"_s);
    }

    QString stammdaten() const { return hof.ort().programm() + u"/ZABStammdaten_2024.mdb"_s; }

    /// Presses the print button; what it prints goes into a file.
    QStringList drucke()
    {
        auto& Report = feld<report::PrintControl>("Report");
        const QString pdf = hof.ort().verzeichnis() + u"/druck.pdf"_s;
        QFile::remove(pdf);
        Report.setDestination(report::PrintControl::ToFile);
        Report.setPrintFileName(pdf);
        Hauptbildschirm::drucke("Command2", Qt::Key_Return);
        QStringList zeilen;
        if (!QFile::exists(pdf)) return zeilen;
        for (const QStringList& seite : readPdf(pdf))
            zeilen += seite;
        return zeilen;
    }

    QString auswertungsdatei() const { return feld<report::PrintControl>("Report").DataFiles(0); }
};

/// Whether one of the lines has these words; ".." stands for others between them.
bool steht(const QStringList& zeilen, const QString& worte)
{
    const QStringList stuecke = worte.split(u" .. "_s);
    return std::ranges::any_of(zeilen, [&](const QString& zeile) {
        qsizetype ab = 0;
        for (const QString& stueck : stuecke) {
            ab = zeile.indexOf(stueck, ab);
            if (ab < 0) return false;
            ab += stueck.size();
        }
        return true;
    });
}

} // namespace

TEST_F(Druck, DasPapierSagtWasDerBildschirmZeigt)
{
    NEEDS_PDFTOTEXT;
    oeffne();
    struct Fall {
        const char* name;
        std::function<void()> vorher;
        QStringList mit, ohne;
    };
    const Fall faelle[] = {
        {"journal, continuous",
         [] {},
         {u"Bewegungsjournal"_s, u"Von 01.01.2024 bis 31.12.2024"_s, u"Lindenhof"_s,
          u"Fortlaufend: Alle Lagerorte, Alle Artikelgruppen, Alle Artikel im Kalenderjahr 2024 sortiert nach Datum"_s,
          u"06.05.2024 Weizen .. Verkauf H1 20,00 dt"_s, u"Herbizid .. Giftigkeit:"_s},
         {u"Summe"_s}},
        {"grouped",
         [&] { feld<OptionButton>("SSOption2").click(); },
         {u"Gruppiert nach Artikel: Alle Lagerorte"_s, u"Summe 1.500,00 1.500,00 l"_s},
         {}},
        {"grouped by kind",
         [&] { feld<ComboBox>("DrpGruppierung").setText(u"Artikelgruppe"_s); },
         {u"Gruppiert nach Artikelgruppe"_s, u"Treib- und Brennstoffe"_s},
         {}},
        {"one place", [&] { tippe("drpLagerOrte", u"H2"_s); }, {u"H2, Alle Artikelgruppen"_s}, {u"Verkauf H1"_s}},
        {"no movement",
         [&] { tippe("VonDatum", u"30.12.2024"_s); },
         {u"Von 30.12.2024 bis 31.12.2024"_s, u"Keine Bewegungen in dieser Ansicht."_s},
         {u"Weizen"_s, u"Summe"_s}},
        {"no stock",
         [&] { feld<QTabWidget>("SSTab1").setCurrentIndex(1); },
         {u"Keine Bestände in dieser Ansicht."_s},
         {u"Weizen"_s}},
        {"an impossible date restricts nothing",
         [&] { tippe("VonDatum", u"31.2.2024"_s); },
         {u"Von 01.01.2024 bis 31.12.2024"_s, u"Weizen .. H2 50,00"_s},
         {}},
        {"stock list",
         [&] { tippe("VonDatum", u"1.1.2024"_s); },
         {u"Lagerstandsliste"_s, u"Aufgeteilt nach Lagerorten"_s, u"Weizen .. H2 50,00"_s, u"Diesel"_s},
         {u"Hafer"_s}},
        {"sorted by a sum",
         [&] { klickeKopf("BestandListe", 5); },
         {u"sortiert nach Aktueller Bestand"_s, u"Diesel .. 1.500,00 1.500,00 0,00 l"_s},
         {}},
        {"in sum, without zeros, sorted by a column that is hidden then",
         [&] {
             klickeKopf("BestandListe", 2);
             tippe("drpLagerOrte", u"Alle"_s);
             for (const char* haken : {"chkNurSumme", "chkOhneNull"})
                 Hauptbildschirm::drucke(haken, Qt::Key_Space);
         },
         {u"Alle Lagerorte in Summe"_s, u"sortiert nach Artikel"_s, u"Weizen .. 150,00 20,00 130,00 dt"_s},
         {u"Diesel"_s}},
    };
    for (const Fall& fall : faelle) {
        SCOPED_TRACE(fall.name);
        fall.vorher();
        const QStringList zeilen = drucke();
        for (const QString& worte : fall.mit)
            EXPECT_TRUE(steht(zeilen, worte)) << worte.toStdString() << " in\n" << zeilen.join(u'\n').toStdString();
        for (const QString& worte : fall.ohne)
            EXPECT_FALSE(steht(zeilen, worte)) << worte.toStdString();
    }
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    std::optional<Fremdprogramm> anderes(auswertungsdatei()); // has the last one open; the next print builds its own
    EXPECT_FALSE(drucke().isEmpty());
    anderes.reset();
    const auto datei = jet::engine().OpenDatabase(auswertungsdatei());
    EXPECT_EQ(gezeigt(*datei, u"SELECT Artikel, Gruppe, LEN(Giftigkeit) AS L FROM JOURNAL"
                              u" WHERE Artikelart = 'Pflanzenschutzmittel'"_s),
              (QStringList{u"Gamma | Herbizid | 255"_s, u"Delta | NULL | NULL"_s}));
    const QString name = auswertungsdatei();
    datei->Close();
    schliesse();
    EXPECT_FALSE(QFile::exists(name));
}

TEST_F(Druck, EinArtikelInZweiEinheitenHatKeineSummeUndSagtEs)
{
    NEEDS_PDFTOTEXT;
    hof.bucht(2024, "03.06. | H1 | Diesel | 1 | Zukauf");
    oeffne();
    tippe("drpArtikel", u"Diesel"_s);
    EXPECT_TRUE(steht(drucke(), u"Keine Summe: Die Bewegungen haben verschiedene Einheiten."_s));
    feld<QTabWidget>("SSTab1").setCurrentIndex(1);
    EXPECT_TRUE(steht(drucke(), u"Keine Summe: Die Bestände haben verschiedene Einheiten."_s));
}

TEST_F(Druck, WasFehltWirdGenanntUndNichtsBleibtHalb)
{
    NEEDS_PDFTOTEXT;
    const QString formular = hof.ort().programm() + u"/Report/Lagerverwaltung/Lagerjournal.rpt"_s;
    struct Fall {
        const char* name;
        std::function<void()> vorher, danach;
        sys::Answer antwort;
        QString meldung;
        bool gebaut, gedruckt;
    };
    const auto begrenze = [](rlim_t platz) { // for each file of this process
        std::signal(SIGXFSZ, SIG_IGN);       // a write fails instead of ending the process
        rlimit grenze{};
        getrlimit(RLIMIT_FSIZE, &grenze);
        grenze.rlim_cur = platz;
        setrlimit(RLIMIT_FSIZE, &grenze);
    };
    const Fall faelle[] = {
        {"no form", [&] { QFile::rename(formular, formular + u".weg"_s); },
         [&] { QFile::rename(formular + u".weg"_s, formular); }, sys::Answer::Abort, u"Lagerjournal.rpt"_s, true,
         false},
        {"no master data, ignored", [&] { QFile::rename(stammdaten(), stammdaten() + u".weg"_s); },
         [&] { QFile::rename(stammdaten() + u".weg"_s, stammdaten()); }, sys::Answer::Ignore,
         u"ZABStammdaten_2024.mdb"_s, true, true},
        {"no master data, left", [&] { QFile::rename(stammdaten(), stammdaten() + u".weg"_s); },
         [&] { QFile::rename(stammdaten() + u".weg"_s, stammdaten()); }, sys::Answer::Abort,
         u"ZABStammdaten_2024.mdb"_s, false, false},
        {"an apostrophe in the farm's name", [] { modulzustand().Betriebsname = u"Bauer's Hof"_s; },
         [] { modulzustand().Betriebsname = u"Lindenhof"_s; }, sys::Answer::Abort, u"Betriebsname"_s, true, false},
        {"a full disk", [&] { begrenze(10'000); }, [&] { begrenze(RLIM_INFINITY); }, sys::Answer::Abort,
         u"Lagerauswertung.mdb"_s, false, false},
    };
    oeffne();
    jet::engine().release();
    for (const Fall& fall : faelle) {
        SCOPED_TRACE(fall.name);
        fall.vorher();
        hof.meldungen().beantworteAlle(fall.antwort);
        EXPECT_EQ(!drucke().isEmpty(), fall.gedruckt);
        EXPECT_EQ(sys::Exist(auswertungsdatei()) != 0, fall.gebaut);
        const QStringList meldungen = hof.meldungen().abgeholt();
        EXPECT_TRUE(meldungen.value(0).contains(fall.meldung)) << meldungen.join(u'|').toStdString();
        fall.danach();
        EXPECT_FALSE(drucke().isEmpty()) << "the screen goes on";
    }
}

// A sort that the database refused gives up the filter of its view; the paper must not show the rest of the year for it.
TEST_F(Druck, EineGescheiterteSortierungDrucktNichtDasGanzeJahr)
{
    hof.bucht(2024, "03.06. | H1 | Vorderachsoel | 1 | Zukauf");
    oeffne();
    tippe("drpArtikel", u"Vord"_s);
    hof.meldungen().beantworteAlle(sys::Answer::Abort);
    klickeKopf("Journalliste", 1);
    EXPECT_EQ(drucke(), QStringList());
    const QStringList meldungen = hof.meldungen().abgeholt();
    EXPECT_EQ(meldungen.size(), 2);
    for (const QString& meldung : meldungen)
        EXPECT_TRUE(meldung.startsWith(bericht(3075))) << meldung.toStdString();
}
