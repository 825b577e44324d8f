#include "masks/Einzelbuchung.h"

#include "core/Modulzustand.h"
#include "core/Ruecknahme.h"
#include "masks/ErfassungsmaskenModul.h"
#include "masks/Maskenfenster.h"
#include "masks/Maskenteile.h"
#include "masks/Textlaenge.h"
#include "platform/controls/FocusWhole.h"
#include "platform/controls/RowIds.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Wiring.h"
#include "platform/system/Settings.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

const QString Abschnitt = u"Lagerverwaltung"_s;

DataControl* listenquelle(const QString& name, QObject& maske)
{
    auto* const quelle = new DataControl(&maske);
    quelle->setObjectName(name);
    return quelle;
}

} // namespace

Einzelbuchung::Einzelbuchung(const Felder& felder, const Artikelwahl::Folgen& folgen, Maskenfenster& maske,
                             std::initializer_list<QWidget*> anfaenge)
    : QObject(&maske), m_felder(felder), m_maske(maske),
      m_lagerauswahl(listenquelle(u"Lagerauswahl"_s, maske)),
      m_artikelauswahl(listenquelle(u"Artikelauswahl"_s, maske))
{
    Maskenkopf& kopf = felder.kopf;
    std::vector<QWidget*> gruppen{kopf.drpLagerort, kopf.drpArtikel, &felder.txtMenge};
    gruppen.insert(gruppen.end(), anfaenge.begin(), anfaenge.end());
    gruppen.push_back(felder.fuss.txtKommentar);
    maske.richteFensterEin(felder.fuss, gruppen);
    maske.bewache(*kopf.drpArtikel);
    maske.bewache(felder.txtMenge);
    m_tag = new Buchungstag(
        *kopf.Buchdatum, *kopf.Command3, [&maske] { maske.weiter(); }, this);
    m_ort = new Lagerortwahl({*kopf.drpLagerort, *kopf.lblLagerort, *kopf.lblLagername, *m_lagerauswahl},
                             folgen.artikel, this);
    m_artikel = new Artikelwahl(
        {*kopf.drpGruppe, *kopf.drpArtikel, *kopf.chkVorhanden, *kopf.lblArtikel, *m_artikelauswahl}, folgen,
        this);
    m_artikel->fuehreHaken();
    verdrahte(kopf.Buchdatum, &DateCombo::Change, this, folgen.artikel);
    begrenze(felder.txtEinheit, u"Einheit"_s, 15);
}

Maskenfelder Einzelbuchung::maskenfelder() const
{
    const Maskenkopf& kopf = m_felder.kopf;
    return {*kopf.Buchdatum,
            *kopf.drpLagerort,
            *kopf.drpGruppe,
            *kopf.drpArtikel,
            m_felder.txtMenge,
            m_felder.Ampel,
            *m_felder.fuss.Command2_0_,
            *m_felder.fuss.Command2_1_,
            *m_lagerauswahl,
            *m_artikelauswahl};
}

void Einzelbuchung::oeffne()
{
    m_maske.setWindowTitle(modulzustand().AktBuchungsart + u" erfassen"_s);
    const QString vorhandene = sys::GetSetting(Abschnitt, u"NurVorhandenAnzeigen"_s, u"0"_s);
    m_felder.kopf.chkVorhanden->setValue(vorhandene.toInt());
}

void Einzelbuchung::bereiteVor() const
{
    bereiteMaskeVor(maskenfelder());
}

void Einzelbuchung::zeigeErstesLeeresFeld()
{
    const Maskenkopf& kopf = m_felder.kopf;
    for (ComboField* feld :
         std::initializer_list<ComboField*>{kopf.drpLagerort, kopf.drpGruppe, kopf.drpArtikel})
        if (feld->Text().isEmpty()) return feld->setFocus();
    focusWhole(m_felder.txtMenge);
}

void Einzelbuchung::zeigeTag() const
{
    focusWhole(m_tag->feld());
}

void Einzelbuchung::zeige(const Buchung& zeile)
{
    m_tag->setTag(zeile.Datum.value_or(QDate()));
    m_artikel->zeige(zeile);
    m_ort->setOrt(zeile.LagerortKurzKu.value_or(QString()));
    m_felder.txtEinheit.setText(zeile.Einheit.value_or(QString()));
    m_felder.fuss.txtKommentar->setText(zeile.Kommentar.value_or(QString()));
}

Buchung Einzelbuchung::buchung() const
{
    Buchung zeile;
    zeile.Datum = m_tag->Tag();
    zeile.Artikel = m_artikel->Artikel();
    zeile.Artikelart = m_artikel->Artikelart();
    zeile.LagerortKurzKu = m_ort->Ort();
    zeile.Buchungsart = modulzustand().AktBuchungsart;
    zeile.Einheit = m_felder.txtEinheit.Text();
    zeile.Kommentar = m_felder.fuss.txtKommentar->Text();
    return zeile;
}

void Einzelbuchung::schreibe(Buchung zeile) const
{
    DataControl& journal = m_maske.journaldaten();
    auto verwirf = qScopeGuard([&] { journal.UpdateControls(); }); // drops the pending row
    Aufzeichnung aufzeichnung(journal.Database());
    if (m_maske.aendert())
        aufzeichnung.vorher(m_maske.ID());
    else
        zeile.BuchungsID = 0; // of no sibling program
    m_maske.aendert() ? journal.Edit() : journal.AddNew();
    setze(journal, zeile);
    journal.Update();
    verwirf.dismiss();
    if (!m_maske.aendert()) aufzeichnung.neu(idAt(journal, journal.RecordCount() - 1).value_or(0));
    aufzeichnung.fertig();
}

Speicherweg::Eingaben Einzelbuchung::eingaben() const
{
    return {maskenfelder(), *m_tag};
}

void Einzelbuchung::merke() const
{
    const CheckBox& haken = *m_felder.kopf.chkVorhanden;
    if (haken.isVisible())
        sys::SaveSetting(Abschnitt, u"NurVorhandenAnzeigen"_s, QString::number(haken.Value()));
}

void Einzelbuchung::positioniere() const
{
    if (!m_maske.aendert()) m_maske.journaldaten().MoveLast();
    m_maske.zeigeBestand(m_artikel->Artikel(), m_ort->Ort());
}
