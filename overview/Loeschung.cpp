#include "overview/Loeschung.h"

#include "overview/FremdeBuchung.h"
#include "platform/controls/DataControl.h"
#include "platform/controls/DataGrid.h"
#include "platform/controls/RowIds.h"
#include "platform/controls/Wiring.h"
#include "platform/system/Blanks.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Messages.h"
#include "transfer/Umbuchungspartner.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

/// The grid's tag while the second row of a transfer goes.
const QString OhneFrage = u"LÖSCHEN"_s;

} // namespace

Loeschung::Loeschung(QPushButton& Command4, DataControl& Journaldaten, DataGrid& Journalliste,
                     std::function<void(const Wiederfinden&)> danach, QObject* bildschirm)
    : QObject(bildschirm), m_journal(Journaldaten), m_liste(Journalliste), m_danach(std::move(danach))
{
    verdrahte(&Command4, &QPushButton::clicked, this, &Loeschung::Command4_Click);
    verdrahte(&Journalliste, &DataGrid::BeforeDelete, this, &Loeschung::Journalliste_BeforeDelete);
    verdrahte(&Journalliste, &DataGrid::AfterDelete, this, &Loeschung::Journalliste_AfterDelete);
}

/// As the key does it, so that both pass the same guard.
void Loeschung::Command4_Click()
{
    m_liste.setFocus();
    QKeyEvent entf(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    QCoreApplication::sendEvent(&m_liste, &entf);
}

void Loeschung::Journalliste_BeforeDelete(Cancel& cancel, bool& prompt)
{
    prompt = false;
    if (m_liste.Tag() == OhneFrage) return;
    cancel = true; // also when the row cannot be read
    const jet::Recordset& zeile = m_journal.Recordset();
    if (istFremdeBuchung(zeile, u"Eine Löschung kann nur in diesem Programm erfolgen."_s)) return;
    const auto antwort = sys::messages().show(u"Wollen Sie die markierte Zeile wirklich löschen ?"_s,
                                              sys::YesNo | sys::Question | sys::DefaultButton2);
    if (antwort != sys::Answer::Yes) return;
    cancel = false;
    const bool umbuchung = zeile[u"Buchungsart"].toText() == u"Umbuchung";
    m_liste.setTag(umbuchung ? QString::number(zeile[u"ID"].toLong()) : QString());
}

void Loeschung::Journalliste_AfterDelete()
{
    const QString tag = sys::trimBlanks(m_liste.Tag());
    if (tag == OhneFrage) return;
    m_liste.setTag({});
    const Wiederfinden gesucht{.vorher = currentId(m_journal), .platz = m_journal.AbsolutePosition()};
    if (!tag.isEmpty()) sys::underErrorReport({[&] { loeschePartner(tag.toLongLong()); }});
    m_danach(gesucht); // reads the journal anew
}

void Loeschung::loeschePartner(qint64 ID)
{
    const auto partner = umbuchungspartner(m_journal, ID);
    if (!partner) return;
    if (!bewegeZu(m_journal, *partner)) {
        m_journal.Database().Execute(u"DELETE * FROM LAGERJOURNAL WHERE ID = "_s + QString::number(*partner));
        return;
    }
    // Taken back however it ends, or the next delete would ask nothing.
    const auto fragt = qScopeGuard([this] { m_liste.setTag({}); });
    m_liste.setTag(OhneFrage);
    m_liste.Delete();
}
