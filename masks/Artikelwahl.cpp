#include "masks/Artikelwahl.h"

#include "core/farm/Artikelarten.h"
#include "masks/ErfassungsmaskenModul.h"
#include "platform/controls/ClickLabel.h"
#include "platform/controls/Wiring.h"
#include "platform/system/ErrorReport.h"

Artikelwahl::Artikelwahl(const Felder& felder, const Folgen& folgen, QObject* maske)
    : QObject(maske), m_felder(felder)
{
    felder.lblArtikel.setBuddy(felder.drpArtikel);
    verbindeArtikel(felder.drpArtikel, felder.Artikelauswahl);
    fuelleArtikelarten(felder.drpGruppe);
    verdrahte(&felder.drpGruppe, &ComboBox::Click, this, [this, folgen] {
        sys::underErrorReport({[this] { lade(); }, folgen.art, folgen.artikel});
    });
    verdrahte(&felder.lblArtikel, &ClickLabel::Click, this, [this] {
        ladeArtikelstamm(m_felder.Artikelauswahl, m_felder.drpArtikel,
                         m_etikettOhneArt ? QString() : Artikelart());
    });
    verdrahte(&felder.chkVorhanden, &CheckBox::Click, this, [this, folgen] {
        if (m_fuehrtHaken) return lade();
        sys::underErrorReport({[this] { lade(); }, folgen.artikel});
    });
    verdrahteArtikel(folgen);
}

void Artikelwahl::verdrahteArtikel(const Folgen& folgen)
{
    DataCombo& drpArtikel = m_felder.drpArtikel;
    verdrahte(&drpArtikel, &DataCombo::DropDown, this, [this] { lade(); });
    verdrahte(&drpArtikel, &DataCombo::GotFocus, this,
              [this] { // once: a year of a million rows takes half a second
                  if (Artikelart().isEmpty() && !m_felder.Artikelauswahl.isOpen()) lade();
              });
    const auto folgeArtikel = [this, folgen] { // who begins with the article need not choose its kind
        if (!uebernimmArtikelart(m_felder.drpGruppe, m_felder.drpArtikel)) return;
        lade();
        folgen.art();
    };
    verdrahte(&drpArtikel, &DataCombo::Click, this, [folgeArtikel, folgen] {
        sys::underErrorReport({folgeArtikel, folgen.artikel});
    });
    verdrahte(&drpArtikel, &DataCombo::Validate, this, [this, folgen](Cancel& cancel) {
        cancel = !darfArtikelVerlassen(m_felder.drpArtikel, m_felder.Artikelauswahl, folgen.artikel);
    });
}

void Artikelwahl::zeige(const Buchung& zeile)
{
    setArtikel(zeile.Artikel.value_or(QString()));
    m_felder.drpArtikel.setTag(Artikel());
    setArtikelart(zeile.Artikelart.value_or(QString()));
}

bool Artikelwahl::istUnveraendert() const
{
    return Artikel() == m_felder.drpArtikel.Tag();
}

void Artikelwahl::lade()
{
    bool vorhandene = nurVorhandene();
    ladeArtikel(m_felder.Artikelauswahl, m_felder.drpArtikel, Artikelart(), vorhandene);
    if (m_fuehrtHaken) m_felder.chkVorhanden.setValue(vorhandene);
}

void Artikelwahl::oeffne()
{
    if (Artikelart().isEmpty()) return;
    const QString artikel = Artikel();
    lade();
    setArtikel(artikel);
}

/// Produce is always offered from the journal.
void Artikelwahl::zeigeHaken()
{
    const bool erzeugnis = Artikelart() == PflanzlicheErzeugnisse;
    if (erzeugnis) m_felder.chkVorhanden.setValue(1);
    m_felder.chkVorhanden.setVisible(!erzeugnis);
}
