#include "masks/Artikelwahl.h"

#include "core/Journaldatei.h"
#include "core/farm/Artikelarten.h"
#include "masks/ErfassungsmaskenModul.h"
#include "masks/Lagerstand.h"
#include "platform/controls/ClickLabel.h"
#include "platform/controls/Wiring.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Messages.h"

using namespace Qt::StringLiterals;

namespace {

/// With their units: a name booked in two units is listed twice.
void verbindeArtikel(DataCombo& combo, DataControl& Artikelauswahl)
{
    combo.setDataFieldToDisplay(u"NAME"_s);
    combo.addColumn(u"Artikel"_s, u"NAME"_s);
    combo.addColumn(u"Einheit"_s, u"Einheit"_s);
    combo.setDataSource(Artikelauswahl);
}

/// Chooses the kind of an article that was entered while none was chosen: that of the journal, if it has
/// booked the article under one kind only. False: it stays as it is.
bool uebernimmArtikelart(ComboBox& drpGruppe, const DataCombo& drpArtikel)
{
    const QString artikel = vergleichsform(drpArtikel.Text());
    if (!drpGruppe.Text().isEmpty() || artikel.isEmpty()) return false;
    const auto journal = oeffneJournaldatei();
    const auto arten = journal->OpenRecordset(
        u"SELECT Min(ARTIKELART) AS Erste, Max(ARTIKELART) AS Letzte FROM LAGERJOURNAL WHERE"
        u" LCASE(TRIM(ARTIKEL)) = '"_s +
            artikel + u"' AND ARTIKELART > ''"_s,
        jet::Kind::Snapshot);
    const QString erste = (*arten)[u"Erste"].toText();
    if (erste.isEmpty() || erste != (*arten)[u"Letzte"].toText()) return false;
    drpGruppe.setText(erste);
    return true;
}

} // namespace

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
    verdrahte(&drpArtikel, &DataCombo::Validate, this,
              [this, folgen](Cancel& cancel) { cancel = !darfVerlassen(folgen.artikel); });
}

bool Artikelwahl::darfVerlassen(const std::function<void()>& fuelle)
{
    bool gelistet = true;
    const bool unveraendert =
        !m_felder.drpArtikel.Tag().isEmpty() && m_felder.drpArtikel.Text() == m_felder.drpArtikel.Tag();
    sys::underErrorReport({
        [&] {
            if (!unveraendert)
                gelistet = pruefeEintrag(m_felder.drpArtikel, m_felder.Artikelauswahl, u"Name"_s);
        },
        [&] {
            if (gelistet) fuelle();
        },
    });
    if (!gelistet)
        sys::critical(
            u"Bitte tragen Sie eine gültigen Artikel ein oder wählen Sie eineb Artikel aus !"_s); // sic
    return gelistet;
}

const jet::Recordset* Artikelwahl::gesucht(const QString& Artikel)
{
    const QString artikel = vergleichsform(Artikel);
    if (artikel.isEmpty() || !m_felder.Artikelauswahl.isOpen()) return nullptr;
    m_felder.Artikelauswahl.FindFirst(u"TRIM(LCASE(NAME)) = '"_s + artikel + u"'"_s);
    return m_felder.Artikelauswahl.NoMatch() ? nullptr : &m_felder.Artikelauswahl.Recordset();
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
