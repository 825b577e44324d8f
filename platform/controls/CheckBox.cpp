#include "platform/controls/CheckBox.h"

#include <QScopedValueRollback>

CheckBox::CheckBox(QWidget* parent) : QCheckBox(parent)
{
    connect(this, &QCheckBox::stateChanged, this, [this] {
        if (m_silent) return;
        m_changed = true;
        Q_EMIT Click();
    });
}

int CheckBox::Value() const
{
    switch (checkState()) {
    case Qt::Unchecked: return 0;
    case Qt::Checked: return 1;
    case Qt::PartiallyChecked: return 2;
    }
    Q_UNREACHABLE();
}

void CheckBox::setValue(int value)
{
    const QScopedValueRollback silent(m_silent, true);
    enterValue(value);
}

void CheckBox::enterValue(int value)
{
    setCheckState(value == 0 ? Qt::Unchecked : value == 2 ? Qt::PartiallyChecked : Qt::Checked);
}

/// The user cannot make it grey.
void CheckBox::nextCheckState()
{
    setCheckState(checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
}

void CheckBox::showValue(const jet::Value& value)
{
    setValue(value.isNull() ? 2 : value.toBool() ? 1 : 0);
    m_changed = false;
}

std::optional<jet::Value> CheckBox::changedValue() const
{
    if (!m_changed) return {};
    return jet::Value(Value() == 1);
}
