#include "overview/Filterleiste.h"

#include "core/Journaldatei.h"
#include "overview/Ansichten.h"
#include "overview/Filter.h"
#include "overview/Statusmeldung.h"
#include "overview/Zeitraum.h"
#include "platform/controls/Wiring.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Pointer.h"

#include <QElapsedTimer>
#include <QTimer>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

Filterleiste::Filterleiste(const Felder& felder, const Hauptansicht& haupt, Umgebung umgebung,
                           QObject* bildschirm)
    : QObject(bildschirm), m_felder(felder), m_haupt(haupt), m_umgebung(std::move(umgebung))
{
    for (ComboBox* liste : {&felder.drpLagerOrte, &felder.drpArtikelGruppe, &felder.drpArtikel})
        liste->setListOnly(true);
    felder.drpLagerOrte.setColumns({u"Bezeichnung"_s}, 0);
    waehleAlle();
}

void Filterleiste::verdrahteFelder()
{
    for (ComboBox* const liste : {&m_felder.drpLagerOrte, &m_felder.drpArtikelGruppe, &m_felder.drpArtikel})
        verdrahte(liste, &ComboBox::GotFocus, this, &Filterleiste::fuelleAusstehende);
    verdrahte(&m_felder.drpLagerOrte, &ComboBox::Click, this, &Filterleiste::FilterEinstellen);
    verdrahte(&m_felder.drpArtikelGruppe, &ComboBox::Click, this, &Filterleiste::drpArtikelGruppe_Click);
    verdrahte(&m_felder.drpArtikel, &ComboBox::Click, this, &Filterleiste::FilterEinstellen);
    verdrahte(&m_felder.VonDatum, &DateCombo::Change, this, &Filterleiste::FilterEinstellen);
    verdrahte(&m_felder.Buchdatum, &DateCombo::Change, this, &Filterleiste::FilterEinstellen);
    verdrahte(&m_felder.chkOhneNull, &CheckBox::Click, this, &Filterleiste::FilterEinstellen);
    verdrahte(&m_felder.chkNurSumme, &CheckBox::Click, this, &Filterleiste::FilterEinstellen);
}

void Filterleiste::AuswahllistenFullen()
{
    fuelle(listen(), *oeffneJournaldatei());
}

void Filterleiste::fuelleFuerAnderesJahr()
{
    ::fuelleFuerAnderesJahr(listen(), *oeffneJournaldatei());
}

void Filterleiste::waehleAlle()
{
    m_felder.drpLagerOrte.setText(AlleLagerorte);
    m_felder.drpArtikelGruppe.setText(AlleArtikelgruppen);
    m_felder.drpArtikel.setText(AlleArtikel);
}

void Filterleiste::zeigeJahr(int jahr)
{
    m_felder.VonDatum.setDate(QDate(jahr, 1, 1));
    m_felder.Buchdatum.setDate(QDate(jahr, 12, 31));
}

void Filterleiste::drpArtikelGruppe_Click()
{
    const sys::Hourglass warten;
    sys::underErrorReport({
        [this] { AuswahllistenFullen(); },
        [this] { m_felder.drpArtikel.setText(AlleArtikel); },
        [this] { FilterEinstellen(); },
    });
}

void Filterleiste::FilterEinstellen()
{
    const sys::Hourglass warten;
    m_umgebung.zeigeStatus(); // a hint was about the rows of before
    std::optional<Statusmeldung> meldung;
    if (m_liestLange) meldung.emplace(m_felder.Statuszeile, u"Die Ansichten werden gelesen ..."_s);
    QElapsedTimer uhr;
    uhr.start();
    m_gezeigteEingrenzung.clear();
    markiereZeitraum(m_felder.VonDatum, m_felder.Buchdatum);
    const auto ausgang = sys::underErrorReport({
        [this] { // litres were once called so; a file that is only looked at keeps them
            if (const auto journal = oeffneJournaldatei(); journal->Updatable())
                journal->Execute(
                    u"UPDATE LAGERJOURNAL SET EINHEIT = 'l' WHERE IIF(Isnull(EINHEIT),'',EINHEIT) = 'Lt'"
                    u" AND ARTIKELART = 'Pflanzenschutzmittel'"_s);
            m_dateiAntwortet = true;
        },
        [this] { filtereJournal(m_haupt, gewaehlteEingrenzung()); },
        [this] {
            if (m_gemalt) zeigeBestandsliste();
        },
        [this] {
            m_umgebung.zeigeEinstellungen();
            m_dateiAntwortet = true;
        },
    });
    if (ausgang != sys::Outcome::Left) m_gezeigteEingrenzung = gewaehlteEingrenzung();
    constexpr int Lange = 1000; // ms; by the last time, since nobody knows before
    m_liestLange = uhr.elapsed() > Lange;
}

QString Filterleiste::gewaehlteEingrenzung() const
{
    return eingrenzung({.Lagerort = m_felder.drpLagerOrte.Text(),
                        .Artikelgruppe = m_felder.drpArtikelGruppe.Text(),
                        .Artikel = m_felder.drpArtikel.Text(),
                        .von = m_felder.VonDatum.Date(),
                        .bis = m_felder.Buchdatum.Date()});
}

bool Filterleiste::zeigtGewaehltes() const
{
    const auto gefiltert = [](const DataControl& daten) { return daten.isOpen() && !brauchtFilter(daten); };
    return gefiltert(m_haupt.Journaldaten) && gefiltert(m_haupt.Bestanddaten) &&
           m_gezeigteEingrenzung == gewaehlteEingrenzung();
}

bool Filterleiste::stelleFilterSicher()
{
    if (!zeigtGewaehltes()) FilterEinstellen();
    return zeigtGewaehltes();
}

void Filterleiste::fuelleListenDanach()
{
    if (m_gezeigteEingrenzung.isEmpty()) return; // whoever left that wants no second wait for the same lock
    constexpr int Gemalt = 50;                   // ms
    m_listenStehenAus = true;
    QTimer::singleShot(Gemalt, this, [this] { sys::underErrorReport({[this] { fuelleAusstehende(); }}); });
}

void Filterleiste::fuelleAusstehende()
{
    if (std::exchange(m_listenStehenAus, false)) AuswahllistenFullen();
}

bool Filterleiste::liesNeu()
{
    sys::underErrorReport({[this] { AuswahllistenFullen(); }, [this] { FilterEinstellen(); }});
    return zeigtGewaehltes();
}

void Filterleiste::zeigeBestandsliste()
{
    filtereBestandsliste(
        m_haupt, gewaehlteEingrenzung(),
        {.inSumme = m_felder.chkNurSumme.isChecked(), .ohneNull = m_felder.chkOhneNull.isChecked()});
}

/// The journal is to be seen at once. What takes half a second more in a large year lies behind a tab or in
/// lists that are closed.
void Filterleiste::nachErstemMalen()
{
    if (m_gemalt) return;
    m_gemalt = true;
    // A lock is waited for and told once. After a name that broke a statement the lists are needed to choose
    // another.
    if (!m_dateiAntwortet) return;
    const auto lade = [this] {
        const sys::Hourglass warten;
        sys::underErrorReport({[this] { AuswahllistenFullen(); }, [this] { zeigeBestandsliste(); }});
    };
    QMetaObject::invokeMethod(this, lade, Qt::QueuedConnection);
}
