#pragma once

#include "platform/controls/Cancel.h"
#include "platform/controls/CheckedField.h"

#include <QLineEdit>
#include <QSet>

/// A line to type into, with the classic properties and events; the base of text boxes and number fields.
///
/// For all controls of this room: a setter called by the program itself (setText) fires no handler. Every
/// other change does, as a finished entry of the user would, be it typed, pasted, undone, made by an
/// assistive tool, or written to the property by its name (setProperty("Text", ...)). Writing a property
/// fires no key events and makes no check; the check is owed (CheckedField.h).
class EditField : public QLineEdit, public CheckedField {
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE enterText)
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)
    Q_PROPERTY(QString Tag READ Tag WRITE setTag)

public:
    explicit EditField(QWidget* parent = nullptr);

    QString Text() const { return text(); }
    void setText(const QString& text);
    void enterText(const QString& text); ///< As the user would.

    bool Locked() const { return isReadOnly(); }
    /// A locked field only shows: it is flat, can be selected and copied, and Tab passes it by.
    void setLocked(bool locked);

    QString Tag() const { return m_tag; } ///< For the screen's own use.
    void setTag(const QString& tag) { m_tag = tag; }

Q_SIGNALS:
    /// A character is typed and not taken yet. A handler may put another one in its place; the character 0
    /// drops it.
    void KeyPress(QChar& character);
    /// A key that can change the text, or Enter, was released after it had been pressed in this field. A key
    /// released from a window that has just closed does not count, nor do repetitions and chords with Ctrl or
    /// Alt.
    void KeyUp();
    void Change(); ///< The user has changed the text; while he types, once per character.
    void GotFocus();
    void LostFocus();
    void Validate(Cancel& cancel); ///< The user is leaving the field.

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

    void finish() override {}
    bool accepts() override;
    virtual void textChangedByUser();
    virtual void entered(Qt::FocusReason) {} ///< Comes before GotFocus,
    virtual void left() {}                   ///< and this before LostFocus.
    virtual QPalette look() const;           ///< What differs from the style's own colours.
    void updateLook();

private:
    QString passedThroughKeyPress(const QString& typed);

    QString m_tag;
    QSet<int> m_pressed;
    bool m_silent = false;
};
