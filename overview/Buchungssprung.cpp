#include "overview/Buchungssprung.h"

#include "platform/controls/ComboBox.h"
#include "platform/controls/DataControl.h"
#include "platform/controls/DataGrid.h"
#include "platform/controls/RowIds.h"
#include "platform/system/Messages.h"

#include <QTabWidget>

using namespace Qt::StringLiterals;

Buchungssprung::Buchungssprung(const Felder& felder, std::function<void()> zeigeAlles, QObject* bildschirm)
    : QObject(bildschirm), m_felder(felder), m_zeigeAlles(std::move(zeigeAlles))
{}

void Buchungssprung::geheZu(int jahr, std::optional<qint64> ID) const
{
    if (oeffneJahr(jahr) && ID) zeigeBuchung(*ID);
}

/// Opening another year carries stocks forward, which a look at a booking need not mean. \returns whether
/// it is open.
bool Buchungssprung::oeffneJahr(int jahr) const
{
    const QString gesucht = QString::number(jahr);
    if (m_felder.drpJahr.Text() == gesucht) return true;
    if (sys::messages().show(
            u"Dafür muss das Jahr "_s + gesucht +
                u" geöffnet werden; dabei werden die Bestände weitergeschrieben. Jahr öffnen ?"_s,
            sys::YesNo | sys::Question | sys::DefaultButton2) != sys::Answer::Yes)
        return false;
    m_felder.drpJahr.enterText(gesucht);
    return m_felder.drpJahr.Text() == gesucht;
}

void Buchungssprung::zeigeBuchung(qint64 ID) const
{
    m_felder.SSTab1.setCurrentWidget(&m_felder.TabJournal);
    findId(m_felder.Journaldaten, ID);
    if (m_felder.Journaldaten.NoMatch()) {
        m_zeigeAlles();
        findId(m_felder.Journaldaten, ID);
    }
    if (m_felder.Journaldaten.NoMatch())
        sys::messages().show(
            u"Die Buchung "_s + QString::number(ID) +
                u" hat keinen Tag dieses Jahres, und nur solche zeigt das Bewegungsjournal."_s,
            sys::Information | sys::OKOnly);
    m_felder.Journalliste.setFocus();
}
