#include "platform/controls/TextBox.h"

void TextBox::textChangedByUser()
{
    m_changed = true;
    EditField::textChangedByUser();
}

void TextBox::showValue(const jet::Value& value)
{
    setText(value.toText());
    m_changed = false;
}

std::optional<jet::Value> TextBox::changedValue() const
{
    if (!m_changed) return {};
    return jet::Value(Text());
}
