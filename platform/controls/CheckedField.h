#pragma once

#include <QFocusEvent>
#include <QWidget>

/// A field that is checked when the user leaves it, and that can then keep the focus.
///
/// The check is made when the user himself moves on within the window: by Tab, Enter, mouse or mnemonic. It
/// is not made when the program moves the focus, when another window, a message box or a pop-up comes, and
/// when the widget he goes to has the property CausesValidation set to false, as "Abbrechen" has. A mouse
/// click that was refused does nothing else.
///
/// What the user changes and is not checked yet is owed: owedChecksPass() catches up before something is
/// saved, since a mnemonic presses a button without moving the focus.
class CheckedField {
public:
    virtual ~CheckedField() = default;
    Q_DISABLE_COPY_MOVE(CheckedField)

    /// Takes what was typed and checks it. False: it was refused, and the user has been told.
    [[nodiscard]] bool check();
    bool owesCheck() const { return m_owed; }

protected:
    explicit CheckedField(QWidget& field) : m_field(field) {}

    void changedByUser() { m_owed = true; }
    bool isBeingChecked() const { return m_checking; }
    bool isEntered() const { return m_entered; } ///< Also while another window or a pop-up has the focus.
    /// To be asked first by focusOutEvent. True: the focus is here again, and the event is to be forgotten.
    bool keepsFocus(const QFocusEvent& event);
    /// Notes that the focus came or went. True: the field is entered or left, rather than only its window.
    bool enters(const QFocusEvent& event);
    bool leaves(const QFocusEvent& event);

private:
    virtual void finish() = 0;  ///< Takes what was typed: the field is left, in whatever way.
    virtual bool accepts() = 0; ///< Asks the field's own rules and the handlers of Validate.
    bool isOwnMove(Qt::FocusReason reason, const QWidget* target) const;

    QWidget& m_field;
    bool m_owed = false;
    bool m_checking = false;
    bool m_entered = false;
};

/// Makes the checks that fields of a screen owe, in the order of the tabulator. False: one was refused; it
/// has the focus.
[[nodiscard]] bool owedChecksPass(const QWidget& screen);
