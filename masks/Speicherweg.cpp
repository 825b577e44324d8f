#include "masks/Speicherweg.h"

#include "masks/Maskenfenster.h"
#include "masks/Maskenteile.h"
#include "platform/controls/CheckedField.h"
#include "platform/controls/FocusWhole.h"
#include "platform/controls/Wiring.h"
#include "platform/system/ErrorReport.h"

#include <QPointer>
#include <QScopeGuard>

Speicherweg::Speicherweg(Maskenfenster& maske, Maskenfuss& fuss, Schritte schritte)
    : QObject(&maske), m_maske(maske), m_fuss(fuss), m_schritte(std::move(schritte))
{
    verdrahte(fuss.Command2_0_, &QPushButton::clicked, this, [this] { speichere(false); });
    verdrahte(fuss.Command2_1_, &QPushButton::clicked, this, [this] { speichere(true); });
}

void Speicherweg::speichere(bool beendet)
{
    if (!owedChecksPass(m_maske)) return; // a mnemonic presses the button without leaving the field
    if (!m_schritte.darf() || !schreibe()) return;
    // Guarded by itself: what fails now, as by an apostrophe in a name, must not lead to a second booking.
    sys::underErrorReport({m_schritte.positioniere});
    if (beendet) return m_maske.accept();
    m_schritte.leere();
}

bool Speicherweg::schreibe()
{
    const QPointer<QWidget> fokus = m_maske.focusWidget(); // a button that is disabled gives it away
    sperre(true);
    const auto entsperre = qScopeGuard([&] {
        sperre(false);
        if (fokus) focusWhole(*fokus);
    });
    if (sys::underErrorReport({m_schritte.merke}) == sys::Outcome::Left) return false;
    if (sys::underErrorReport({m_schritte.schreibe}) != sys::Outcome::Done) return false;
    m_maske.vergissGetipptes();
    return true;
}

void Speicherweg::sperre(bool gesperrt)
{
    for (QPushButton* knopf : {m_fuss.Command2_0_, m_fuss.Command2_1_})
        knopf->setDisabled(gesperrt);
}
