#include "platform/controls/FocusWhole.h"

#include <QComboBox>
#include <QLineEdit>

void focusWhole(QWidget& field)
{
    field.setFocus();
    const auto* const combo = qobject_cast<QComboBox*>(&field);
    auto* const line = combo ? combo->lineEdit() : qobject_cast<QLineEdit*>(&field);
    if (line) line->selectAll();
}
