#include "platform/controls/OptionButton.h"

#include <QScopedValueRollback>

OptionButton::OptionButton(QWidget* parent) : QRadioButton(parent)
{
    connect(this, &QRadioButton::toggled, this, [this](bool chosen) {
        if (chosen && !m_silent) Q_EMIT Click();
    });
}

void OptionButton::setValue(bool value)
{
    const QScopedValueRollback silent(m_silent, true);
    enterValue(value);
}

void OptionButton::enterValue(bool value)
{
    setChecked(value);
}
