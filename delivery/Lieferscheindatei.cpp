#include "delivery/Lieferscheindatei.h"

#include "core/Journaldatei.h"
#include "core/SQLTexte.h"
#include "core/Verzeichnisse.h"
#include "core/farm/Dateien.h"
#include "platform/jet/Engine.h"
#include "platform/system/Blanks.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Files.h"

using namespace Qt::StringLiterals;

namespace {

/// The tables, as report forms know them; `ID` stays empty in both.
constexpr QStringView Anweisungen[] = {
    u"CREATE TABLE Uberschrift (ID Long)",
    u"ALTER TABLE Uberschrift ADD COLUMN Zeile1 Text(100)",
    u"ALTER TABLE Uberschrift ADD COLUMN Zeile2 Text(100)",
    u"ALTER TABLE Uberschrift ADD COLUMN Zeile3 Text(100)",
    u"ALTER TABLE Uberschrift ADD COLUMN Datum date",
    u"ALTER TABLE Uberschrift ADD COLUMN Kurzku Text(15)",
    u"ALTER TABLE Uberschrift ADD COLUMN Lieferscheinnummer Long",
    u"ALTER TABLE Uberschrift ADD COLUMN Zusatztext Memo",
    u"CREATE INDEX IDINDEX ON Uberschrift (ID)",
    u"CREATE TABLE Journal (ID Long)",
    u"ALTER TABLE Journal ADD COLUMN Artikel Text(50)",
    u"ALTER TABLE Journal ADD COLUMN ArtikelArt Text(25)",
    u"ALTER TABLE Journal ADD COLUMN Menge Double",
    u"ALTER TABLE Journal ADD COLUMN Preis Double",
    u"ALTER TABLE Journal ADD COLUMN Einheit Text(15)",
    u"ALTER TABLE Journal ADD COLUMN Preisfaktor Text(3)",
    u"CREATE INDEX IDINDEX ON Journal (ID)",
};

void legeTabellenAn(jet::Database& druck)
{
    for (const QStringView anweisung : Anweisungen)
        druck.Execute(anweisung.toString());
    druck.CreateTableDef(
        u"HANDLER"_s, verknuepfung(Dateiart::Grundstamm, grundstammdatei(datenverzeichnis())), u"HANDLER"_s);
}

/// What is empty stays NULL.
void setzeWennNichtLeer(jet::Recordset& zeile, QStringView spalte, const QString& text)
{
    if (!text.isEmpty()) zeile.Set(spalte, text);
}

void schreibeKopf(jet::Database& druck, const Lieferschein& schein)
{
    const auto kopf = druck.OpenRecordset(u"SELECT * FROM UBERSCHRIFT"_s, jet::Kind::Dynaset);
    kopf->AddNew();
    kopf->Set(u"Datum", schein.Datum);
    kopf->Set(u"Kurzku", schein.Empfaenger);
    setzeWennNichtLeer(*kopf, u"Zeile1", sys::trimBlanks(schein.Zeile1));
    setzeWennNichtLeer(*kopf, u"Zeile2", sys::trimBlanks(schein.Zeile2));
    setzeWennNichtLeer(*kopf, u"Zeile3", sys::trimBlanks(schein.Zeile3));
    setzeWennNichtLeer(*kopf, u"Zusatztext", sys::trimBlanks(schein.Zusatztext));
    kopf->Set(u"Lieferscheinnummer", schein.Nummer);
    kopf->Update();
}

void schreibeZeile(jet::Recordset& zeile, const jet::Recordset& verkauf, bool mitPreis)
{
    zeile.AddNew();
    zeile.Set(u"Artikel", verkauf[u"Artikel"]);
    zeile.Set(u"ArtikelArt", verkauf[u"Artikelart"]);
    zeile.Set(
        u"Menge",
        0 - verkauf[u"Menge"].toDouble()); // sales are negative in the journal; no quantity is 0, not -0
    setzeWennNichtLeer(zeile, u"Einheit", verkauf[u"Einheit"].toText());
    if (mitPreis) {
        zeile.Set(u"Preis", verkauf[u"Preis"]);
        setzeWennNichtLeer(zeile, u"Preisfaktor", verkauf[u"Preisfaktor"].toText());
    }
    zeile.Update();
}

void schreibeZeilen(jet::Database& druck, int Jahr, const Lieferschein& schein)
{
    const auto journal = oeffneJournal(Jahr);
    const auto verkaeufe = journal->OpenRecordset(
        u"SELECT * FROM LAGERJOURNAL WHERE DATUM = "_s + SQLDatum(schein.Datum.toText()) +
            u" AND Uberstallt_alt = '"_s + schein.Empfaenger.toText() +
            u"' AND IIF(ISNULL(LIEFERSCHEINNUMMER),0,LIEFERSCHEINNUMMER) = "_s +
            QString::number(schein.Nummer),
        jet::Kind::Snapshot);
    const auto zeilen = druck.OpenRecordset(u"SELECT * FROM JOURNAL"_s, jet::Kind::Dynaset);
    for (; !verkaeufe->Eof(); verkaeufe->MoveNext())
        schreibeZeile(*zeilen, *verkaeufe, schein.mitPreis);
}

void baue(const QString& datei, int Jahr, const Lieferschein& schein)
{
    loescheLieferscheindatei(datei);
    const auto druck = jet::engine().CreateDatabase(datei, u";LANGID=0x0409;CP=1252;COUNTRY=0"_s);
    druck->BeginTrans(); // twenty commits would be felt
    legeTabellenAn(*druck);
    schreibeKopf(*druck, schein);
    schreibeZeilen(*druck, Jahr, schein);
    druck->Close();
}

} // namespace

bool baueLieferscheindatei(const QString& datei, int Jahr, const Lieferschein& schein)
{
    if (sys::underErrorReport({[&] { baue(datei, Jahr, schein); }}) == sys::Outcome::Done) return true;
    sys::underErrorReport({[&] { loescheLieferscheindatei(datei); }});
    return false;
}

void loescheLieferscheindatei(const QString& datei)
{
    if (sys::Exist(datei)) sys::Kill(datei);
}
