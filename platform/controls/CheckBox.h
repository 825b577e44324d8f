#pragma once

#include "platform/controls/BoundField.h"

#include <QCheckBox>

/// A check box with the classic values, which may be bound to a Yes/No field. Setters and property writes are
/// told apart as in EditField.
class CheckBox : public QCheckBox, public BoundField {
    Q_OBJECT
    Q_PROPERTY(int Value READ Value WRITE enterValue)
    Q_PROPERTY(QString Caption READ text WRITE setText)
    Q_PROPERTY(QString DataField READ DataField)

public:
    explicit CheckBox(QWidget* parent = nullptr);

    int Value() const;          ///< 0: clear, 1: ticked, 2: grey, as a field that is NULL is shown.
    void setValue(int value);   ///< Anything but 0 and 2 ticks.
    void enterValue(int value); ///< As the user would.

Q_SIGNALS:
    void Click(); ///< The user has changed the value.

protected:
    void nextCheckState() override;

private:
    void showValue(const jet::Value& value) override;
    std::optional<jet::Value> changedValue() const override;

    bool m_silent = false;
    bool m_changed = false;
};
