#pragma once

#include "platform/controls/BoundField.h"
#include "platform/controls/EditField.h"

/// A line of text, which may be bound to a field of a data control.
class TextBox : public EditField, public BoundField {
    Q_OBJECT
    Q_PROPERTY(QString DataField READ DataField)

public:
    using EditField::EditField;

protected:
    void textChangedByUser() override;

private:
    void showValue(const jet::Value& value) override;
    std::optional<jet::Value> changedValue() const override;

    bool m_changed = false;
};
