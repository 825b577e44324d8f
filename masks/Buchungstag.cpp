#include "masks/Buchungstag.h"

#include "core/Modulzustand.h"
#include "masks/ErfassungsmaskenModul.h"
#include "platform/controls/Wiring.h"
#include "platform/system/Clock.h"

using namespace Qt::StringLiterals;

namespace {

/// The second bound was never given a day and counts as day zero, so no day lies before it: the date stays as
/// it is. Kept, as users know the button so.
void stelleAufHeute(DateCombo& Buchdatum)
{
    const QDate letzterTag = nulldatum();
    if (Buchdatum.MinDate() <= sys::heute() && letzterTag >= sys::heute()) Buchdatum.enterDate(sys::heute());
}

} // namespace

Buchungstag::Buchungstag(DateCombo& Buchdatum, QPushButton& heute, std::function<void()> weiter,
                         QObject* maske)
    : QObject(maske), m_Buchdatum(Buchdatum)
{
    verdrahte(&heute, &QPushButton::clicked, this, [this, &heute, weiter = std::move(weiter)] {
        stelleAufHeute(m_Buchdatum);
        if (heute.hasFocus()) weiter();
    });
}

bool Buchungstag::pruefe()
{
    const QDate tag = m_Buchdatum.Date();
    if (!tag.isValid()) return fehlt(m_Buchdatum, u"Bitte tragen Sie ein Datum ein !"_s);
    if (QString::number(tag.year()) == modulzustand().Jahr) return true;
    return fehlt(m_Buchdatum, u"Das Datum liegt nicht im Jahr "_s + modulzustand().Jahr + u" !"_s);
}
