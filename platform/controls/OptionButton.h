#pragma once

#include <QRadioButton>

/// One of several choices. Setters and property writes are told apart as in EditField.
class OptionButton : public QRadioButton {
    Q_OBJECT
    Q_PROPERTY(bool Value READ Value WRITE enterValue)
    Q_PROPERTY(QString Caption READ text WRITE setText)

public:
    explicit OptionButton(QWidget* parent = nullptr);

    bool Value() const { return isChecked(); }
    void setValue(bool value);   ///< The chosen one of a group goes off only when another is chosen.
    void enterValue(bool value); ///< As the user would.

Q_SIGNALS:
    void Click(); ///< The user has chosen this one; the others of its group say nothing.

private:
    bool m_silent = false;
};
