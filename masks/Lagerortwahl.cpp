#include "masks/Lagerortwahl.h"

#include "masks/ErfassungsmaskenModul.h"
#include "masks/Textlaenge.h"
#include "platform/controls/ClickLabel.h"
#include "platform/controls/Wiring.h"
#include "platform/system/ErrorReport.h"

using namespace Qt::StringLiterals;

namespace {

/// Its text is the short code, its list shows name and code, a typed name picks it.
void verbindeLagerorte(DataCombo& combo, DataControl& Lagerauswahl)
{
    combo.setDataFieldToDisplay(u"KurzKu"_s);
    combo.setDataFieldToFind(u"Name"_s);
    combo.addColumn(u"Name"_s, u"Name"_s);
    combo.addColumn(u"Kürzel"_s, u"KurzKu"_s);
    combo.setDataSource(Lagerauswahl);
}

} // namespace

Lagerortwahl::Lagerortwahl(const Felder& felder, std::function<void()> gewaehlt, QObject* maske)
    : QObject(maske), m_felder(felder)
{
    felder.lblLagerort.setBuddy(felder.drpLagerort);
    verbindeLagerorte(felder.drpLagerort, felder.Lagerauswahl);
    verdrahte(&felder.lblLagerort, &ClickLabel::Click, this, &Lagerortwahl::lade);
    verdrahte(&felder.drpLagerort, &DataCombo::DropDown, this, &Lagerortwahl::lade);
    verdrahte(&felder.drpLagerort, &DataCombo::Click, this, [this, gewaehlt = std::move(gewaehlt)] {
        sys::underErrorReport({[this] { zeigeName(); }, gewaehlt});
    });
    begrenze(felder.drpLagerort, u"Lagerort"_s, 15);
}

void Lagerortwahl::setOrt(const QString& kurzel)
{
    m_felder.drpLagerort.setText(kurzel);
}

void Lagerortwahl::oeffne()
{
    m_felder.Lagerauswahl.Refresh();
    zeigeName();
}

void Lagerortwahl::zeigeName()
{
    m_felder.lblLagername.clear();
    m_felder.lblLagername.setToolTip({});
    if (!m_felder.drpLagerort.IsItemInList()) return;
    m_felder.Lagerauswahl.FindFirst(u"KurzKu = '"_s + Ort() + u"'"_s);
    if (m_felder.Lagerauswahl.NoMatch()) return;
    m_felder.lblLagername.setText(m_felder.Lagerauswahl.Recordset()[u"Name"].toText());
    m_felder.lblLagername.setToolTip(m_felder.lblLagername.text()); // the mask does not grow for a long one
}

void Lagerortwahl::lade()
{
    ladeLagerorte(m_felder.Lagerauswahl, m_felder.drpLagerort);
    zeigeName();
}
