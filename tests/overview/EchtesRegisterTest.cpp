// The check of plant-protection products against a national register: all of its products lie in store, and each sentence
// must come as often as another program counted in the register's own tables.
//
// The tables are those of the Swiss Federal Food Safety and Veterinary Office (BLV), Pflanzenschutzmittelverzeichnis, in
// two states; only the official register (psm.admin.ch) counts. They may not be handed on and lie beside the project.

#include "overview/Registerpruefung.h"
#include "tests/core/CsvTabelle.h"
#include "tests/support/Testbetrieb.h"

#include <QFile>

#include <gtest/gtest.h>

#include <map>
#include <set>

using namespace Qt::StringLiterals;

namespace {

const QString Ordner = QStringLiteral(ZABLAGER_SHARED_DATA) + u"/register/register_ch_"_s;

QString text(const CsvTabelle& tabelle, const char* spalte)
{
    return tabelle.feld(QString::fromLatin1(spalte));
}

/// What a farm calls its article, by name and number; nothing is longer than the column, so that a long one is cut.
QString artikel(const CsvTabelle& tabelle)
{
    return (text(tabelle, "name") + u"     ("_s + text(tabelle, "registration") + u')').left(50);
}

void ergaenze(jet::Recordset& tabelle, const std::map<QString, jet::Value>& werte)
{
    tabelle.AddNew();
    for (const auto& [feld, wert] : werte)
        tabelle.Set(feld, wert);
    tabelle.Update();
}

} // namespace

TEST(EchtesRegister, SagtVonJedemMittelWasDarinSteht)
{
    const QString frueher = Ordner + u"2024-12-16.csv.xz"_s, heute = Ordner + u"2026-02-03.csv.xz"_s;
    if (!QFile::exists(heute)) GTEST_SKIP() << "there is no " << heute.toStdString();
    Testbetrieb hof;
    const auto stamm =
        jet::engine().OpenDatabase(hof.ort().programm() + u"/ZABStammdaten_2024.mdb"_s, u";pwd=RT-58KX"_s);
    const auto mittel = stamm->OpenRecordset(u"PFLANZENSCHUTZMITTEL"_s, jet::Kind::Table);
    const auto verzeichnis = stamm->OpenRecordset(u"REGISTER"_s, jet::Kind::Table);
    const auto journal = hof.oeffne(2024);
    const auto lager = journal->OpenRecordset(u"LAGERJOURNAL"_s, jet::Kind::Table);
    stamm->BeginTrans();
    journal->BeginTrans();
    const auto lagere = [&](const CsvTabelle& zeile) {
        ergaenze(*lager, {{u"Artikel"_s, artikel(zeile)}, {u"Artikelart"_s, u"Pflanzenschutzmittel"_s}});
    };
    std::set<QString> bekannt;
    for (CsvTabelle alt(frueher); alt.naechste();) {
        const QString nummer = text(alt, "registration");
        ergaenze(*mittel, {{u"NAME"_s, artikel(alt)}, {u"Gruppe"_s, text(alt, "category_de")}, {u"Regnr"_s, nummer}});
        lagere(alt);
        bekannt.insert(nummer);
    }
    for (CsvTabelle neu(heute); neu.naechste();) {
        const QString nummer = text(neu, "registration");
        const QDate frist = QDate::fromString(text(neu, "use_up_deadline"), Qt::ISODate);
        ergaenze(*verzeichnis, {{u"Regnr"_s, nummer},
                                {u"BEZEICHNUNG"_s, text(neu, "name")},
                                {u"Aufbrauchsfrist"_s, frist.isValid() ? jet::Value(frist) : jet::Value()}});
        if (!bekannt.contains(nummer)) lagere(neu); // the product list does not have it, as it is not kept up
    }
    stamm->CommitTrans();
    journal->CommitTrans();
    const auto bestand = journal->OpenRecordset(u"SELECT Artikel, Artikelart FROM LAGERJOURNAL"_s, jet::Kind::Snapshot);
    hof.meldungen().beantworteAlle(sys::Answer::Ignore);
    const QStringList saetze = registerpruefung(*bestand, *stamm, 2026)->split(u"\r\n"_s);
    EXPECT_EQ(hof.meldungen().abgeholt().size(), 1); // the one name with an apostrophe
    for (const auto& [ende, anzahl] : {std::pair{u" ist zugelassen."_s, 1740},
                                       {u" ausgelaufen!"_s, 182},
                                       {u" verbraucht werden."_s, 70},
                                       {u"Registerdatenbank nicht gefunden."_s, 110},
                                       {u"Pflanzenschutzmitteldatenbank nicht gefunden."_s, 108}})
        EXPECT_EQ(saetze.filter(ende).size(), anzahl) << ende.toStdString();
}
