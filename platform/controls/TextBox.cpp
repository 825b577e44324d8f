#include "platform/controls/TextBox.h"

void TextBox::textChangedByUser()
{
    m_changed = true;
    EditField::textChangedByUser();
}

void TextBox::showValue(const jet::Value& value)
{
    if (value.toText() != Text()) setText(value.toText()); // else the cursor stays where the user types
    m_changed = false;
}

std::optional<jet::Value> TextBox::changedValue() const
{
    if (!m_changed) return {};
    return jet::Value(Text());
}
