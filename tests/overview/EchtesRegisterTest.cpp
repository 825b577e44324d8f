// The check of plant-protection products against a national register: all of its products lie in store, and
// each sentence must come as often as another program counted in the register's own tables.
//
// The tables are those of the Swiss Federal Food Safety and Veterinary Office (BLV),
// Pflanzenschutzmittelverzeichnis, in two states; only the official register (psm.admin.ch) counts. They may
// not be handed on and lie beside the project.

#include "overview/Registerpruefung.h"
#include "tests/core/CsvTabelle.h"
#include "tests/support/Testbetrieb.h"

#include <QFile>

#include <gtest/gtest.h>

#include <map>

using namespace Qt::StringLiterals;

namespace {

void ergaenze(jet::Database& datei, const QString& tabelle, const std::map<QString, QString>& werte)
{
    const auto ziel = datei.OpenRecordset(tabelle);
    ziel->AddNew();
    for (const auto& [feld, wert] : werte)
        if (!wert.isEmpty()) ziel->Set(feld, wert);
    ziel->Update();
}

} // namespace

TEST(EchtesRegister, SagtVonJedemMittelWasDarinSteht)
{
    const QString ordner = QStringLiteral(ZABLAGER_SHARED_DATA) + u"/register/register_ch_"_s;
    if (!QFile::exists(ordner + u"2026-02-03.csv.xz"_s))
        GTEST_SKIP() << "there is no " << ordner.toStdString();
    CsvTabelle alte(ordner + u"2024-12-16.csv.xz"_s), neue(ordner + u"2026-02-03.csv.xz"_s);
    Testbetrieb hof;
    const auto stamm =
        jet::engine().OpenDatabase(hof.ort().programm() + u"/ZABStammdaten_2024.mdb"_s, u";pwd=RT-58KX"_s);
    const auto journal = hof.oeffne(2024);
    stamm->BeginTrans();
    journal->BeginTrans();
    while (alte.naechste()) {
        const QString nummer = alte.feld(u"registration"_s);
        // As farms call it; what is longer than the column is cut.
        const QString artikel = (alte.feld(u"name"_s) + u"     ("_s + nummer + u')').left(50);
        ergaenze(*stamm, u"PFLANZENSCHUTZMITTEL"_s,
                 {{u"NAME"_s, artikel}, {u"Gruppe"_s, alte.feld(u"category_de"_s)}, {u"Regnr"_s, nummer}});
        ergaenze(*journal, u"LAGERJOURNAL"_s,
                 {{u"Artikel"_s, artikel}, {u"Artikelart"_s, u"Pflanzenschutzmittel"_s}});
    }
    while (neue.naechste()) {
        const QDate frist = QDate::fromString(neue.feld(u"use_up_deadline"_s), Qt::ISODate);
        ergaenze(*stamm, u"REGISTER"_s,
                 {{u"Regnr"_s, neue.feld(u"registration"_s)},
                  {u"BEZEICHNUNG"_s, neue.feld(u"name"_s)},
                  {u"Aufbrauchsfrist"_s, frist.toString(u"dd.MM.yyyy"_s)}});
    }
    stamm->CommitTrans();
    journal->CommitTrans();
    const auto bestand =
        journal->OpenRecordset(u"SELECT Artikel, Artikelart FROM LAGERJOURNAL"_s, jet::Kind::Snapshot);
    hof.meldungen().beantworteAlle(sys::Answer::Ignore);
    const QStringList saetze = registerpruefung(*bestand, *stamm, 2026)->split(u"\r\n"_s);
    EXPECT_EQ(hof.meldungen().abgeholt().size(), 1); // the one name with an apostrophe
    for (const auto& [ende, anzahl] : {std::pair{u" ist zugelassen."_s, 1740},
                                       {u" ausgelaufen!"_s, 182},
                                       {u" verbraucht werden."_s, 70},
                                       {u"Registerdatenbank nicht gefunden."_s, 110}})
        EXPECT_EQ(saetze.filter(ende).size(), anzahl) << ende.toStdString();
}
