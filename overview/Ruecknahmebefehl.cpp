#include "overview/Ruecknahmebefehl.h"

#include "core/Ruecknahme.h"
#include "platform/controls/DataControl.h"
#include "platform/controls/DataGrid.h"
#include "platform/controls/RowIds.h"
#include "platform/controls/Tasten.h"
#include "platform/controls/Wiring.h"
#include "platform/system/Messages.h"
#include "platform/system/Pointer.h"

using namespace Qt::StringLiterals;

Ruecknahmebefehl::Ruecknahmebefehl(DataControl& Journaldaten, DataGrid& Journalliste,
                                   std::function<void(const Wiederfinden&, const QString&)> danach,
                                   QWidget* bildschirm)
    : QAction(u"Letzte Buchung &zurücknehmen\t"_s + tastenname(Taste::Zuruecknehmen), bildschirm),
      m_journal(Journaldaten), m_danach(std::move(danach))
{
    setObjectName(u"M_Zuruecknehmen"_s);
    verdrahte(this, &QAction::triggered, this, &Ruecknahmebefehl::nimmZurueck);
    bindeTaste(
        Taste::Zuruecknehmen, Journalliste, [this] { trigger(); }, Qt::WidgetShortcut);
}

void Ruecknahmebefehl::nimmZurueck()
{
    if (!m_journal.isOpen()) return;
    const auto ergebnis = ::nimmZurueck(m_journal.Database());
    if (!ergebnis.gelungen) {
        sys::messages().show(ergebnis.satz, sys::OKOnly | sys::Information);
        return;
    }
    const sys::Hourglass warten;
    const auto ID = ergebnis.ID ? ergebnis.ID : currentId(m_journal);
    m_danach({.vorher = ID, .platz = m_journal.AbsolutePosition()}, ergebnis.satz);
}
