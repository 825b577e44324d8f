#include "masks/Erfassungsmaske.h"
#include "core/farm/Artikelarten.h"

#include "core/Modulzustand.h"
#include "masks/ErfassungsmaskenModul.h"
#include "masks/Maskenteile.h"
#include "masks/Textlaenge.h"
#include "platform/controls/FocusWhole.h"
#include "platform/controls/Wiring.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Settings.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

const QString Abschnitt = u"Lagerverwaltung"_s;

} // namespace

Erfassungsmaske::Erfassungsmaske(const Hauptansicht& haupt, QWidget* parent)
    : Maskenfenster(haupt, parent), m_lagerauswahl(new DataControl(this)), m_artikelauswahl(new DataControl(this))
{
    m_lagerauswahl->setObjectName(u"Lagerauswahl"_s);
    m_artikelauswahl->setObjectName(u"Artikelauswahl"_s);
}

void Erfassungsmaske::verbinde(Maskenkopf& kopf, Maskenfuss& fuss, NumberEdit& txtMenge, TextBox& txtEinheit,
                               AmpelLED& Ampel, std::initializer_list<QWidget*> anfaenge)
{
    m_kopf = &kopf;
    m_fuss = &fuss;
    m_einheit = &txtEinheit;
    m_felder.emplace(Maskenfelder{*kopf.Buchdatum, *kopf.drpLagerort, *kopf.drpGruppe, *kopf.drpArtikel, txtMenge,
                                  Ampel, *fuss.Command2_0_, *fuss.Command2_1_, *m_lagerauswahl, *m_artikelauswahl});
    std::vector<QWidget*> alle{kopf.drpLagerort, kopf.drpArtikel, &txtMenge};
    alle.insert(alle.end(), anfaenge.begin(), anfaenge.end());
    alle.push_back(fuss.txtKommentar);
    richteFensterEin(fuss, std::move(alle));
    bewache(felder().drpArtikel);
    bewache(txtMenge);
    richteListenEin();
    verdrahteKopf();
    verdrahte(&txtMenge, &NumberEdit::Change, this, [this] { txtMenge_Change(); });
    begrenze(felder().drpLagerort, u"Lagerort"_s, 15);
    begrenze(txtEinheit, u"Einheit"_s, 15);
}

void Erfassungsmaske::richteListenEin()
{
    m_kopf->lblLagerort->setBuddy(felder().drpLagerort);
    m_kopf->lblArtikel->setBuddy(felder().drpArtikel);
    verbindeLagerorte(felder().drpLagerort, *m_lagerauswahl);
    verbindeArtikel(felder().drpArtikel, *m_artikelauswahl);
    fuelleArtikelarten(felder().drpGruppe);
}

void Erfassungsmaske::verdrahteKopf()
{
    verdrahte(m_kopf->Buchdatum, &DateCombo::Change, this, [this] { FelderFullen(); });
    verdrahte(m_kopf->Command3, &QPushButton::clicked, this, &Erfassungsmaske::Command3_Click);
    verdrahte(m_kopf->lblLagerort, &ClickLabel::Click, this, &Erfassungsmaske::ladeLagerliste);
    verdrahte(m_kopf->drpLagerort, &DataCombo::DropDown, this, &Erfassungsmaske::ladeLagerliste);
    verdrahte(m_kopf->drpLagerort, &DataCombo::Click, this, &Erfassungsmaske::drpLagerort_Click);
    verdrahte(m_kopf->drpGruppe, &ComboBox::Click, this, &Erfassungsmaske::drpGruppe_Click);
    verdrahte(m_kopf->lblArtikel, &ClickLabel::Click, this,
              [this] { ladeArtikelstamm(*m_artikelauswahl, felder().drpArtikel, felder().drpGruppe.Text()); });
    verdrahte(m_kopf->drpArtikel, &DataCombo::DropDown, this, &Erfassungsmaske::ladeArtikelliste);
    verdrahte(m_kopf->drpArtikel, &DataCombo::GotFocus, this, &Erfassungsmaske::drpArtikel_GotFocus);
    verdrahte(m_kopf->drpArtikel, &DataCombo::Click, this, &Erfassungsmaske::drpArtikel_Click);
    verdrahte(m_kopf->drpArtikel, &DataCombo::Validate, this, &Erfassungsmaske::drpArtikel_Validate);
    verdrahte(m_kopf->chkVorhanden, &CheckBox::Click, this, &Erfassungsmaske::ladeArtikelliste);
}

void Erfassungsmaske::stelleWiederHer()
{
    setWindowTitle(modulzustand().AktBuchungsart + u" erfassen"_s);
    chkVorhanden().setValue(sys::GetSetting(Abschnitt, u"NurVorhandenAnzeigen"_s, u"0"_s).toInt());
}

void Erfassungsmaske::uebernimmZeile()
{
    const Buchung zeile = gelesen(journaldaten().Recordset());
    felder().Buchdatum.setDate(zeile.Datum.value_or(QDate()));
    felder().drpArtikel.setText(zeile.Artikel.value_or(QString()));
    felder().drpArtikel.setTag(felder().drpArtikel.Text());
    felder().drpGruppe.setText(zeile.Artikelart.value_or(QString()));
    felder().drpLagerort.setText(zeile.LagerortKurzKu.value_or(QString()));
    Einheit().setText(zeile.Einheit.value_or(QString()));
    m_fuss->txtKommentar->setText(zeile.Kommentar.value_or(QString()));
    zeigeSpalten(zeile);
}

void Erfassungsmaske::zeigeErstesLeeresFeld()
{
    for (ComboField* feld :
         std::initializer_list<ComboField*>{&felder().drpLagerort, &felder().drpGruppe, &felder().drpArtikel})
        if (feld->Text().isEmpty()) return feld->setFocus();
    focusWhole(felder().txtMenge);
}

CheckBox& Erfassungsmaske::chkVorhanden() const
{
    return *m_kopf->chkVorhanden;
}

/// Without the check that belongs to opening the combo: the place of a row that is changed may be no longer offered.
void Erfassungsmaske::oeffneLagerliste()
{
    m_lagerauswahl->Refresh();
    zeigeLagername();
}

void Erfassungsmaske::ladeLagerliste()
{
    ladeLagerorte(*m_lagerauswahl, felder().drpLagerort);
    zeigeLagername();
}

/// The article of a row that is changed stays, also when it is no longer offered. What is offered without a kind is read
/// when somebody comes for it.
void Erfassungsmaske::oeffneArtikelliste()
{
    if (felder().drpGruppe.Text().isEmpty()) return;
    const QString artikel = felder().drpArtikel.Text();
    ladeArtikelliste();
    felder().drpArtikel.setText(artikel);
}

/// Produce is always offered from the journal: there is nothing to tick.
void Erfassungsmaske::zeigeVorhanden()
{
    const bool erzeugnis = felder().drpGruppe.Text() == PflanzlicheErzeugnisse;
    if (erzeugnis) chkVorhanden().setValue(1);
    chkVorhanden().setVisible(!erzeugnis);
}

void Erfassungsmaske::ladeArtikelliste()
{
    bool nurVorhandene = chkVorhanden().Value() == 1;
    ladeArtikel(*m_artikelauswahl, felder().drpArtikel, felder().drpGruppe.Text(), nurVorhandene);
    chkVorhanden().setValue(nurVorhandene);
}

void Erfassungsmaske::zeigeLagername()
{
    ::zeigeLagername(*m_kopf->lblLagername, felder().drpLagerort, *m_lagerauswahl);
}

/// Enter presses the button it has come to, and goes on.
void Erfassungsmaske::Command3_Click()
{
    stelleAufHeute(felder().Buchdatum);
    if (m_kopf->Command3->hasFocus()) focusNextChild();
}

void Erfassungsmaske::drpLagerort_Click()
{
    sys::underErrorReport({[this] { zeigeLagername(); }, [this] { FelderFullen(); }});
}

void Erfassungsmaske::drpGruppe_Click()
{
    sys::underErrorReport(
        {[this] { ladeArtikelliste(); }, [this] { Ansichteinstellen(); }, [this] { FelderFullen(); }});
}

/// Once: a year of a million rows takes half a second.
void Erfassungsmaske::drpArtikel_GotFocus()
{
    if (felder().drpGruppe.Text().isEmpty() && !m_artikelauswahl->isOpen()) ladeArtikelliste();
}

void Erfassungsmaske::drpArtikel_Click()
{
    sys::underErrorReport({[this] { folgeArtikel(); }, [this] { FelderFullen(); }});
}

/// Who begins with the article need not choose its kind.
void Erfassungsmaske::folgeArtikel()
{
    if (!uebernimmArtikelart(felder().drpGruppe, felder().drpArtikel)) return;
    ladeArtikelliste();
    Ansichteinstellen();
}

void Erfassungsmaske::drpArtikel_Validate(Cancel& cancel)
{
    cancel = !darfArtikelVerlassen(felder().drpArtikel, *m_artikelauswahl, [this] { FelderFullen(); });
}

bool Erfassungsmaske::darfSpeichern()
{
    return pruefeEingabe(felder()) && pruefeDatum(felder().Buchdatum);
}

void Erfassungsmaske::merkeEinstellungen()
{
    if (chkVorhanden().isVisible())
        sys::SaveSetting(Abschnitt, u"NurVorhandenAnzeigen"_s, QString::number(chkVorhanden().Value()));
}

/// One step of the error report, from the new row to its being written: ignoring an error cannot store half a row.
void Erfassungsmaske::schreibe()
{
    auto verwirf = qScopeGuard([this] { journaldaten().UpdateControls(); }); // drops the pending row
    Buchung buchung;
    buchung.Datum = felder().Buchdatum.Date();
    buchung.Artikel = felder().drpArtikel.Text();
    buchung.Artikelart = felder().drpGruppe.Text();
    buchung.LagerortKurzKu = felder().drpLagerort.Text();
    buchung.Buchungsart = modulzustand().AktBuchungsart;
    buchung.Einheit = Einheit().Text();
    buchung.Kommentar = m_fuss->txtKommentar->Text();
    ergaenze(buchung);
    if (!aendert()) buchung.BuchungsID = 0; // of no sibling program
    aendert() ? journaldaten().Edit() : journaldaten().AddNew();
    setze(journaldaten(), buchung);
    journaldaten().Update();
    verwirf.dismiss();
}

void Erfassungsmaske::positioniere()
{
    if (!aendert()) journaldaten().MoveLast();
    const bool gefunden = zeigeBestand(haupt().Bestanddaten, felder().drpArtikel.Text(), felder().drpLagerort.Text());
    if (gefunden) waehleNurAktuelleZeile(haupt().BestandListe);
}

void Erfassungsmaske::Command2_Click(int index)
{
    if (!owedChecksPass(*this)) return; // a mnemonic presses the button without leaving the field
    if (!darfSpeichern()) return;
    if (!speichereUnterBericht([this] { merkeEinstellungen(); }, [this] { schreibe(); })) return;
    // Guarded by itself: what fails now, as by an apostrophe in a name, must not lead to a second row.
    sys::underErrorReport({[this] { positioniere(); }});
    if (index == 1) return accept();
    leereFuerNaechste();
    AmpelEinstellen();
}
