#pragma once

#include "platform/controls/EditField.h"

/// A field for a quantity or a price, with German signs. Holds its value to 10 decimals (withoutDust).
///
/// Shows the value by its pattern, a negative one in red; while the user is in it all its decimals and no
/// grouping, all selected at first, so that typing replaces it. The dot of the number block types a comma.
/// What cannot become a number is not taken; what is none yet ("1.5") is refused when the field is left, and
/// until then Value is what it was.
class NumberEdit : public EditField {
    Q_OBJECT
    Q_PROPERTY(double Value READ Value WRITE enterValue)
    Q_PROPERTY(QString NumberFormat READ NumberFormat WRITE setNumberFormat)

public:
    explicit NumberEdit(QWidget* parent = nullptr);

    void setText(const QString&) = delete; // the text follows from the value

    double Value() const { return m_value; }
    void setValue(double value);   ///< Fires no handler, also not that of other figures which follow from it.
    void enterValue(double value); ///< As the user would.

    /// See jet::formatted(). At first "##,##0.00########": two decimals, and more where the value has them.
    QString NumberFormat() const { return m_pattern; }
    void setNumberFormat(const QString& pattern);

Q_SIGNALS:
    void ValueWritten(); ///< The property was written, be it with the value that stood there.

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

    bool accepts() override;
    void entered(Qt::FocusReason reason) override;
    void left() override { show(); }
    void textChangedByUser() override; ///< Change comes only when the value is another one.
    QPalette look() const override;

private:
    void finish() override;
    QString shown() const;
    void show();
    bool isNumber() const; ///< What stands there is one, or is how the value is shown, however large.
    void take(double value);

    QString m_pattern;
    double m_value = 0;
    bool m_enteredByMouse = false;
};
