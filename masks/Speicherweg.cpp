#include "masks/Speicherweg.h"

#include "masks/Buchungstag.h"
#include "masks/ErfassungsmaskenModul.h"
#include "masks/Maskenfenster.h"
#include "masks/Maskenteile.h"
#include "platform/controls/CheckedField.h"
#include "platform/controls/FocusWhole.h"
#include "platform/controls/Wiring.h"
#include "platform/system/ErrorReport.h"

#include <QPointer>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

Speicherweg::Speicherweg(Maskenfenster& maske, Maskenfuss& fuss, Eingaben eingaben, Schritte schritte)
    : QObject(&maske), m_maske(maske), m_fuss(fuss), m_eingaben(std::move(eingaben)),
      m_schritte(std::move(schritte))
{
    verdrahte(fuss.Command2_0_, &QPushButton::clicked, this, [this] { speichere(false); });
    verdrahte(fuss.Command2_1_, &QPushButton::clicked, this, [this] { speichere(true); });
}

void Speicherweg::speichere(bool beendet)
{
    if (!owedChecksPass(m_maske)) return; // a mnemonic presses the button without leaving the field
    if (!darf() || !schreibe()) return;
    // Guarded by itself: what fails now, as by an apostrophe in a name, must not lead to a second booking.
    sys::underErrorReport({m_schritte.positioniere});
    if (beendet) return m_maske.accept();
    m_schritte.leere();
}

/// The first check that fails ends them: the question at red, place, article, quantity, the same of the
/// other side, the day, and what the mask itself asks.
bool Speicherweg::darf()
{
    if (m_schritte.vorher) m_schritte.vorher();
    if (!pruefeEingabe(m_eingaben.felder)) return false;
    if (const auto& dort = m_eingaben.gegenseite)
        if (!darfNegativWerden(dort->Ampel, u"\r\r"_s) ||
            !pruefeOrtUndArtikel(dort->drpLagerort, dort->drpGruppe, dort->drpArtikel))
            return false;
    return m_eingaben.tag.pruefe() && (!m_schritte.frage || m_schritte.frage());
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
