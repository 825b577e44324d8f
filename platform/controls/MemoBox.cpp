#include "platform/controls/MemoBox.h"

#include "platform/system/GermanDialogs.h"

#include <QContextMenuEvent>
#include <QScopedValueRollback>

MemoBox::MemoBox(QWidget* parent) : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
    connect(this, &QPlainTextEdit::textChanged, this, [this] {
        if (m_silent) return;
        m_changed = true;
        Q_EMIT Change();
    });
}

void MemoBox::setText(const QString& text)
{
    const QScopedValueRollback silent(m_silent, true);
    setPlainText(text);
}

void MemoBox::enterText(const QString& text)
{
    setPlainText(text);
}

void MemoBox::showValue(const jet::Value& value)
{
    if (value.toText() != Text()) setText(value.toText()); // else the cursor stays where the user types
    m_changed = false;
}

std::optional<jet::Value> MemoBox::changedValue() const
{
    if (!m_changed) return {};
    return jet::Value(Text());
}

/// The toolkit's menu, in German whatever the host speaks.
void MemoBox::contextMenuEvent(QContextMenuEvent* event)
{
    const sys::GermanDialogs german;
    QPlainTextEdit::contextMenuEvent(event);
}
