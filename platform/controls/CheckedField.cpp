#include "platform/controls/CheckedField.h"

#include "platform/controls/FocusWhole.h"

#include <QApplication>
#include <QPointer>
#include <QScopedValueRollback>
#include <QVariant>

namespace {

/// Swallows the press that moved the focus, until control returns to the event loop.
class SwallowedPress final : public QObject {
public:
    explicit SwallowedPress(QObject* parent) : QObject(parent)
    {
        qApp->installEventFilter(this);
        deleteLater();
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        return event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    }
};

bool isOfWindow(Qt::FocusReason reason)
{
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

} // namespace

bool CheckedField::check()
{
    const QScopedValueRollback checking(m_checking, true);
    finish();
    m_owed = !accepts();
    return !m_owed;
}

bool CheckedField::isOwnMove(Qt::FocusReason reason, const QWidget* target) const
{
    // A field that is hidden or disabled passes the focus on as Tab would.
    if (!target || target->window() != m_field.window() || !m_field.isVisible() || !m_field.isEnabled())
        return false;
    const QVariant causesValidation = target->property("CausesValidation");
    if (causesValidation.isValid() && !causesValidation.toBool()) return false;
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::MouseFocusReason || reason == Qt::ShortcutFocusReason;
}

bool CheckedField::keepsFocus(const QFocusEvent& event)
{
    if (m_checking || isOfWindow(event.reason())) return false;
    const QPointer<QWidget> target = QApplication::focusWidget();
    if (!isOwnMove(event.reason(), target)) {
        finish();
        return false;
    }
    // Without a reason no widget hears of it: a message of the check finds the focus here, as if nobody had
    // moved.
    m_field.setFocus(Qt::NoFocusReason);
    const bool passed = check();
    const auto isHere = [this] { return m_field.window()->focusWidget() == &m_field; };
    if (!isHere()) return true; // a handler has sent it elsewhere, and we were told
    if (passed && target) target->setFocus(Qt::NoFocusReason);
    if (!passed && event.reason() == Qt::MouseFocusReason) new SwallowedPress(qApp);
    return isHere();
}

bool CheckedField::enters(const QFocusEvent& event)
{
    const bool entered = !m_entered || !isOfWindow(event.reason());
    m_entered = true;
    return entered;
}

bool CheckedField::leaves(const QFocusEvent& event)
{
    if (isOfWindow(event.reason())) return false;
    m_entered = false;
    return true;
}

bool owedChecksPass(const QWidget& screen)
{
    for (QWidget* widget = screen.nextInFocusChain(); widget && widget != &screen;
         widget = widget->nextInFocusChain()) {
        auto* const field = dynamic_cast<CheckedField*>(widget);
        if (!field || !field->owesCheck() || !widget->isVisible() || !widget->isEnabled()) continue;
        if (field->check()) continue;
        focusWhole(*widget);
        return false;
    }
    return true;
}
