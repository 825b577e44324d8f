#include "overview/Loeschung.h"

#include "core/farm/Buchungsarten.h"
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
    verdrahte(&Journalliste, &DataGrid::DeleteEnded, this, [this] { m_paar.reset(); });
    verdrahte(&Journalliste, &DataGrid::DeletesEnded, this, &Loeschung::Journalliste_DeletesEnded);
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
    m_liste.setTag({});
    m_gesucht = aktuelle();
    if (!darfGehen()) return;
    m_geloescht = true;
    m_aufzeichnung.emplace(m_journal.Database()).vorher(m_gesucht.vorher.value());
    if (m_journal.Recordset()[u"Buchungsart"].toText() == buchungsart::Umbuchung) {
        // Only now, as nobody is asked any more while other programs wait for the file.
        sys::underErrorReport(
            {[this] { m_paar = std::make_unique<jet::Transaction>(m_journal.Database()); }});
        if (!m_paar) return;
        m_liste.setTag(QString::number(m_gesucht.vorher.value()));
    }
    cancel = false;
}

Wiederfinden Loeschung::aktuelle() const
{
    return {.vorher = currentId(m_journal), .platz = m_journal.AbsolutePosition()};
}

bool Loeschung::darfGehen()
{
    if (istFremdeBuchung(m_journal.Recordset())) {
        frage(fremdeBuchung(u"Eine Löschung kann nur in diesem Programm erfolgen."_s),
              sys::OKOnly | sys::Critical, sys::OKCancel | sys::Critical);
        return false;
    }
    constexpr int Vorsichtig = sys::Question | sys::DefaultButton2;
    return frage(u"Wollen Sie die markierte Zeile wirklich löschen ?"_s, sys::YesNo | Vorsichtig,
                 sys::YesNoCancel | Vorsichtig) == sys::Answer::Yes;
}

/// Of several rows the user can leave at each one: a year that was selected by mistake has hundreds.
sys::Answer Loeschung::frage(const QString& text, int einzeln, int inReihe)
{
    const auto antwort = sys::messages().show(text, m_liste.DeletesSeveral() ? inReihe : einzeln);
    if (antwort == sys::Answer::Cancel) m_liste.EndDeletes();
    return antwort;
}

void Loeschung::Journalliste_AfterDelete()
{
    const QString tag = sys::trimBlanks(m_liste.Tag());
    if (tag == OhneFrage) return;
    m_liste.setTag({});
    m_gesucht = aktuelle();
    sys::underErrorReport({[&] {
        if (!tag.isEmpty()) loeschePaar(tag.toLongLong());
        m_aufzeichnung->fertig();
    }});
}

void Loeschung::Journalliste_DeletesEnded()
{
    if (std::exchange(m_geloescht, false)) m_danach(m_gesucht); // reads the journal anew
}

/// One step of the error report. What went before an error is kept before its box shows, or was taken back as
/// a whole; the repeat looks for both rows.
void Loeschung::loeschePaar(qint64 ID)
{
    auto paar = std::move(m_paar);
    if (!paar) paar = std::make_unique<jet::Transaction>(m_journal.Database());
    m_journal.Database().Execute(u"DELETE * FROM LAGERJOURNAL WHERE ID = "_s + QString::number(ID));
    loeschePartner(ID);
    paar->commit();
}

void Loeschung::loeschePartner(qint64 ID)
{
    const auto partner = umbuchungspartner(m_journal, ID);
    if (!partner) return;
    m_aufzeichnung->vorher(*partner);
    if (!bewegeZu(m_journal, *partner)) {
        m_journal.Database().Execute(u"DELETE * FROM LAGERJOURNAL WHERE ID = "_s + QString::number(*partner));
        return;
    }
    // Taken back however it ends, or the next delete would ask nothing.
    const auto fragt = qScopeGuard([this] { m_liste.setTag({}); });
    m_liste.setTag(OhneFrage);
    m_liste.Delete();
}
