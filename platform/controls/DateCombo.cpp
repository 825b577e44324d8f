#include "platform/controls/DateCombo.h"

#include "platform/controls/DateFormat.h"
#include "platform/system/Clock.h"
#include "platform/system/GermanDialogs.h"
#include "platform/system/Messages.h"

#include <QCalendarWidget>
#include <QFrame>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QSpinBox>
#include <QStyleOptionComboBox>
#include <QTextCharFormat>
#include <QVBoxLayout>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

DateCombo::DateCombo(QWidget* parent) : ComboField(parent)
{
    lineEdit()->setAlignment(Qt::AlignCenter);
    setInputMethodHints(Qt::ImhDate);
}

int DateCombo::yearMeant() const
{
    if (m_minDate.isValid()) return m_minDate.year();
    return m_lastDate.isValid() ? m_lastDate.year() : sys::heute().year();
}

QDate DateCombo::Date() const
{
    return readTypedDate(Text(), yearMeant());
}

void DateCombo::setDate(QDate date)
{
    setText(formatDate(date));
    if (date.isValid()) m_lastDate = date;
}

void DateCombo::enterDate(QDate date)
{
    enterText(formatDate(date));
}

QString DateCombo::meant(const QString& text) const
{
    const QDate date = readTypedDate(text, yearMeant());
    return date.isValid() ? formatDate(date) : text;
}

void DateCombo::taken()
{
    if (const QDate date = Date(); date.isValid()) m_lastDate = date;
    Q_EMIT Change();
}

bool DateCombo::accepts()
{
    const QString refusal = this->refusal();
    if (refusal.isEmpty()) return ComboField::accepts();
    sys::critical(refusal);
    lineEdit()->selectAll(); // what is typed next takes its place
    return false;
}

QString DateCombo::refusal() const
{
    const QDate date = Date();
    if (m_minDate.isValid() && !date.isValid() && !Text().trimmed().isEmpty())
        return u"\""_s + Text() + u"\" ist kein Datum. Bitte tragen Sie Tag und Monat ein."_s;
    if (date.isValid() && m_minDate.isValid() && date < m_minDate)
        return u"Das Datum "_s + formatDate(date) + u" ist zu früh. Das erste mögliche Datum ist der "_s +
               formatDate(m_minDate) + u'.';
    if (date.isValid() && m_maxDate.isValid() && date > m_maxDate)
        return u"Das Datum "_s + formatDate(date) + u" ist zu spät. Das letzte mögliche Datum ist der "_s +
               formatDate(m_maxDate) + u'.';
    return {};
}

void DateCombo::step(int days)
{
    QDate date = Date();
    date = date.isValid() ? date.addDays(days) : sys::heute();
    if (m_maxDate.isValid()) date = std::min(date, m_maxDate);
    if (m_minDate.isValid()) date = std::max(date, m_minDate);
    setEditText(formatDate(date));
    lineEdit()->selectAll();
}

void DateCombo::keyPressEvent(QKeyEvent* event)
{
    const bool plain = !(event->modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier));
    if (plain && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)) {
        step(event->key() == Qt::Key_Up ? 1 : -1);
        return;
    }
    if (plain && event->text() == u",") {
        QKeyEvent dot(event->type(), Qt::Key_Period, event->modifiers(), u"."_s, event->isAutoRepeat());
        ComboField::keyPressEvent(&dot);
        return;
    }
    ComboField::keyPressEvent(event);
}

void DateCombo::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

QCalendarWidget& DateCombo::calendar()
{
    if (m_calendar) return *m_calendar;
    auto* const frame = new QFrame(this, Qt::Popup);
    frame->setFrameStyle(QFrame::StyledPanel);
    frame->setAttribute(Qt::WA_NoMouseReplay); // a click on the arrow closes it, and does not open it again
    frame->installEventFilter(this);
    auto* const layout = new QVBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    m_calendar = new QCalendarWidget(frame);
    m_calendar->setLocale(QLocale(QLocale::German, QLocale::Germany));
    for (const auto day : {Qt::Saturday, Qt::Sunday})
        m_calendar->setWeekdayTextFormat(day, QTextCharFormat()); // its red cannot be read on a dark ground
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    sys::makeMenuGerman(*m_calendar->findChild<QSpinBox*>()); // the year
    layout->addWidget(m_calendar);
    connect(m_calendar, &QCalendarWidget::activated, this, &DateCombo::pick);
    connect(m_calendar, &QCalendarWidget::clicked, this, &DateCombo::pick);
    m_popup = frame;
    return *m_calendar;
}

void DateCombo::pick(QDate date)
{
    if (!m_popup->isVisible()) return; // Enter and a click report more than once
    m_popup->hide();
    enterDate(date);
    lineEdit()->selectAll();
}

bool DateCombo::DroppedDown() const
{
    return m_popup && m_popup->isVisible();
}

void DateCombo::showPopup()
{
    Q_EMIT DropDown();
    QCalendarWidget& days = calendar();
    days.setDateRange(m_minDate.isValid() ? m_minDate : QDate(100, 1, 1),
                      m_maxDate.isValid() ? m_maxDate : QDate(9999, 12, 31));
    const QDate date = Date();
    days.setSelectedDate(date.isValid() ? date : sys::heute());
    m_popup->adjustSize();
    const QRect free = screen()->availableGeometry();
    const QPoint below = mapToGlobal(QPoint(0, height()));
    const QPoint above = mapToGlobal(QPoint(0, -m_popup->height()));
    const bool fits = below.y() + m_popup->height() <= free.bottom();
    const int left =
        std::clamp(below.x(), free.left(), std::max(free.left(), free.right() - m_popup->width()));
    m_popup->move(left, fits ? below.y() : std::max(free.top(), above.y()));
    m_popup->show();
    days.setFocus();
}

void DateCombo::hidePopup()
{
    if (m_popup) m_popup->hide();
    ComboField::hidePopup();
}

bool DateCombo::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_popup && event->type() == QEvent::Hide) Q_EMIT CloseUp();
    return ComboField::eventFilter(watched, event);
}

QSize DateCombo::sizeHint() const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QSize text(fontMetrics().horizontalAdvance(u"00.00.0000"_s) + 2 * fontMetrics().averageCharWidth(),
                     fontMetrics().height());
    return style()
        ->sizeFromContents(QStyle::CT_ComboBox, &option, text, this)
        .expandedTo(QSize(0, ComboField::sizeHint().height()));
}
