#include "masks/ErfassungsmaskenModul.h"

#include "core/Journaldatei.h"
#include "core/Modulzustand.h"
#include "core/Verzeichnisse.h"
#include "core/farm/Artikelarten.h"
#include "core/farm/Buchungsarten.h"
#include "core/farm/Schema.h"
#include "masks/Lagerstand.h"
#include "platform/controls/DataGrid.h"
#include "platform/controls/FocusWhole.h"
#include "platform/jet/Engine.h"
#include "platform/system/Blanks.h"
#include "platform/system/Clock.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Messages.h"

using namespace Qt::StringLiterals;

namespace {

void stelleAufStammdaten(DataControl& daten)
{
    binde(daten, Dateiart::Grundstamm, grundstammdatei(datenverzeichnis()), verbindung(Dateiart::Grundstamm));
}

/// "'Hafer','Weizen'": the articles that the journal has booked under a kind. Names are not escaped.
QString gebuchteArtikel(const QString& Artikelart)
{
    const auto journal = oeffneJournaldatei();
    const auto zeilen = journal->OpenRecordset(
        u"SELECT DISTINCT ARTIKEL FROM LAGERJOURNAL WHERE ARTIKELART = '"_s + Artikelart + u"'"_s,
        jet::Kind::Snapshot);
    QString liste;
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        if (!liste.isEmpty()) liste += u',';
        liste += u"'"_s + (*zeilen)[u"ARTIKEL"].toText() + u"'"_s;
    }
    return liste;
}

void leereFremdenText(DataControl& daten, DataCombo& combo, const QString& feld)
{
    const QString text = sys::trimBlanks(combo.Text());
    if (text.isEmpty()) return;
    daten.FindFirst(feld + u" = '"_s + text + u"'"_s);
    if (daten.NoMatch()) combo.setText({});
}

void stelleAufLagerorte(DataControl& daten)
{
    binde(daten, Dateiart::Anlagen, anlagendatei(modulzustand().Anlagenverzeichnis),
          verbindung(Dateiart::Anlagen));
    daten.setRecordSource(
        u"Select * From Objekte where (Objektart = 'Lager' Or Objektart = 'Düngersammelstelle')"
        u"  AND Anzeigen=True order by Name"_s);
}

void stelleAufJournal(DataControl& daten)
{
    binde(daten, Dateiart::Lager, modulzustand().Lagerdatei, modulzustand().Lagerpasswort);
}

/// Shows the articles that a source was set for; none was while no kind is chosen.
void zeigeArtikel(DataControl& Artikelauswahl, DataCombo& drpArtikel)
{
    if (Artikelauswahl.RecordSource().isEmpty()) return;
    Artikelauswahl.Refresh();
    leereFremdenText(Artikelauswahl, drpArtikel, u"NAME"_s);
}

/// Those whose kind follows from their name.
void ladeEindeutigeArtikel(DataControl& Artikelauswahl, DataCombo& drpArtikel)
{
    stelleAufJournal(Artikelauswahl);
    Artikelauswahl.setRecordSource(
        u"SELECT ARTIKEL AS NAME, First(LAGERJOURNAL.EINHEIT) AS EINHEIT FROM LAGERJOURNAL"
        u" WHERE ARTIKELART > '' GROUP BY ARTIKEL HAVING Min(ARTIKELART) = Max(ARTIKELART)"
        u" ORDER BY ARTIKEL"_s);
    zeigeArtikel(Artikelauswahl, drpArtikel);
}

} // namespace

void fuelleArtikelarten(ComboBox& drpGruppe)
{
    drpGruppe.setColumns({u"Bezeichnung"_s}, 0);
    drpGruppe.setListOnly(true);
    for (const Artikelart& art : artikelarten())
        drpGruppe.AddItem(art.name.toString());
}

void ladeArtikel(DataControl& Artikelauswahl, DataCombo& drpArtikel, const QString& Artikelart,
                 bool& nurVorhandene)
{
    if (Artikelart.isEmpty()) return ladeEindeutigeArtikel(Artikelauswahl, drpArtikel);
    if (Artikelart == PflanzlicheErzeugnisse) nurVorhandene = true;
    const QString gebuchte = gebuchteArtikel(Artikelart);
    if (!nurVorhandene || gebuchte.isEmpty()) return ladeArtikelstamm(Artikelauswahl, drpArtikel, Artikelart);
    stelleAufJournal(Artikelauswahl);
    Artikelauswahl.setRecordSource(
        u"SELECT DISTINCT ARTIKEL AS NAME, EINHEIT, PREISFAKTOR FROM LAGERJOURNAL WHERE ARTIKELART = '"_s +
        Artikelart + u"' AND ARTIKEL IN ("_s + gebuchte + u')');
    zeigeArtikel(Artikelauswahl, drpArtikel);
}

void ladeArtikelstamm(DataControl& Artikelauswahl, DataCombo& drpArtikel, const QString& Artikelart)
{
    if (const auto* art = artikelartZu(Artikelart)) {
        stelleAufStammdaten(Artikelauswahl);
        Artikelauswahl.setRecordSource(art->abfrage() + art->ordnung.toString());
    }
    zeigeArtikel(Artikelauswahl, drpArtikel);
}

void ladeGeschaeftspartner(DataControl& HandlerDaten)
{
    stelleAufStammdaten(HandlerDaten);
    HandlerDaten.setRecordSource(u"SELECT * FROM HANDLER WHERE SPERRE = False order by KURZKU"_s);
    HandlerDaten.Refresh();
}

void ladeLagerorte(DataControl& Lagerauswahl, DataCombo& drpLagerort)
{
    stelleAufLagerorte(Lagerauswahl);
    Lagerauswahl.Refresh();
    leereFremdenText(Lagerauswahl, drpLagerort, u"KurzKu"_s);
}

bool pruefeEintrag(DataCombo& combo, DataControl& daten, const QString& feld)
{
    const QString text = sys::trimBlanks(combo.Text());
    if (text.isEmpty()) return true;
    if (!combo.IsItemInList()) {
        combo.setDroppedDown(true);
        return false;
    }
    daten.FindFirst(u"LCASE(TRIM("_s + feld + u")) = '"_s + text.toLower() + u"'"_s);
    if (!daten.NoMatch()) combo.setText(daten.Recordset()[feld].toText());
    return true;
}

QDate vorgabedatum(const QString& Buchungsart)
{
    const auto journal = oeffneJournaldatei();
    const auto letzte = journal->OpenRecordset(u"SELECT DATUM FROM Lagerjournal WHERE BUCHUNGSART = '"_s +
                                                   Buchungsart + u"' AND YEAR(DATUM) = "_s +
                                                   modulzustand().Jahr + u" ORDER BY DATUM DESC"_s,
                                               jet::Kind::Dynaset);
    if (!letzte->Eof()) return (*letzte)[u"DATUM"].toDate();
    const int jahr = modulzustand().Jahr.toInt();
    return sys::heute().year() == jahr ? sys::heute() : QDate(jahr, 12, 31);
}

void bereiteMaskeVor(const Maskenfelder& maske)
{
    stelleAufLagerorte(maske.Lagerauswahl);
    stelleAufStammdaten(maske.Artikelauswahl);
    const int jahr = modulzustand().Jahr.toInt();
    maske.Buchdatum.setMinDate(QDate(jahr, 1, 1));
    maske.Buchdatum.setMaxDate(QDate(jahr, 12, 31));
    if (!modulzustand().Aenderungsmodus)
        return maske.Buchdatum.setDate(vorgabedatum(modulzustand().AktBuchungsart));
    // Only one booking is changed: the button that ends the mask takes the place of the one that goes on.
    maske.naechster.hide();
    QFont fett = maske.beenden.font();
    fett.setBold(true);
    maske.beenden.setFont(fett);
}

bool darfNegativWerden(AmpelLED& Ampel, const QString& umbruch)
{
    if (Ampel.Ampel() != Lagerstand::Rot) return true;
    return sys::messages().show(u"Der Lagerstand wird negativ."_s + umbruch +
                                    u"Wollen Sie die Buchung trotzdem abspeichern ?"_s,
                                sys::YesNo | sys::Question | sys::DefaultButton2) == sys::Answer::Yes;
}

bool fehlt(QWidget& feld, const QString& meldung)
{
    sys::critical(meldung);
    focusWhole(feld);
    return false;
}

bool pruefeOrtUndArtikel(DataCombo& drpLagerort, ComboBox& drpGruppe, DataCombo& drpArtikel)
{
    if (sys::trimBlanks(drpLagerort.Text()).isEmpty())
        return fehlt(drpLagerort, u"Bitte wählen Sie einen Lagerort aus !"_s);
    if (!sys::trimBlanks(drpArtikel.Text()).isEmpty()) return true;
    const bool ohneArt = sys::trimBlanks(drpGruppe.Text()).isEmpty();
    return fehlt(ohneArt ? static_cast<QWidget&>(drpGruppe) : drpArtikel,
                 u"Bitte wählen Sie einen Artikel aus !"_s);
}

bool pruefeEingabe(const Maskenfelder& maske)
{
    if (!darfNegativWerden(maske.Ampel, u"\r\n\r\n"_s)) return false;
    if (!pruefeOrtUndArtikel(maske.drpLagerort, maske.drpGruppe, maske.drpArtikel)) return false;
    if (modulzustand().AktBuchungsart == buchungsart::Korrektur) return true; // a count may confirm a stock
    if (maske.txtMenge.Value() == 0) return fehlt(maske.txtMenge, u"Bitte tragen Sie eine Menge ein !"_s);
    return true;
}

void waehleNurAktuelleZeile(DataGrid& liste)
{
    liste.SelBookmarks().RemoveAll();
    liste.SelBookmarks().Add(liste.Bookmark());
}
