#pragma once

#include "platform/controls/Cancel.h"
#include "platform/controls/CheckedField.h"

#include <QComboBox>
#include <QScopedValueRollback>

/// A line with something that drops down, with the classic properties and events; the base of the combos. Its
/// text is what counts, whether or not the list has it; setters and property writes are told apart as in
/// EditField.
///
/// A typed text is taken when the field is left, in whatever way, and with Enter.
class ComboField : public QComboBox, public CheckedField {
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE enterText)
    Q_PROPERTY(bool DroppedDown READ DroppedDown WRITE setDroppedDown)
    Q_PROPERTY(bool IsItemInList READ IsItemInList)
    Q_PROPERTY(QString Tag READ Tag WRITE setTag)

public:
    QString Text() const { return currentText(); }
    void setText(const QString& text);
    void enterText(const QString& text); ///< As the user would.

    virtual bool DroppedDown() const { return m_dropped; }
    /// Called by a handler of Validate it waits until the check is over, so that no message box meets an open
    /// list.
    void setDroppedDown(bool dropped);
    /// The list has the text, whatever its case and blanks at its ends.
    bool IsItemInList() const { return rowOf(Text()) >= 0; }

    QString Tag() const { return m_tag; } ///< For the screen's own use.
    void setTag(const QString& tag) { m_tag = tag; }

    void showPopup() override;

Q_SIGNALS:
    void DropDown(); ///< The list is about to open: the moment to refresh it.
    void CloseUp();
    void GotFocus();
    void LostFocus();
    void Validate(Cancel& cancel); ///< The user is leaving the field.

protected:
    explicit ComboField(QWidget* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

    bool accepts() override;
    void finish() final;
    /// The first row of the list with a text, whatever its case and blanks at its ends; -1: none.
    virtual int rowOf(const QString& text) const = 0;
    /// What the typed text stands for, when it is taken.
    virtual QString meant(const QString& text) const { return text; }
    void showText(const QString& text); ///< Puts the text in place without a handler; it is not taken yet.
    void completeText(
        const QString& text); ///< The same for the text of a change that is being made, and told of then.
    const QString& knownText() const { return m_known; } ///< The text before a change that is being made.
    /// Changes the list with no effect on the text.
    template <class Change>
    void changeList(Change change)
    {
        const QString text = Text();
        {
            const QScopedValueRollback silent(m_silent, true);
            change();
        }
        showText(text);
    }

private:
    virtual void fitList() {} ///< The list is filled and about to open.
    virtual void typed() {}   ///< The user has changed the text and may be typing on.
    virtual void taken() = 0; ///< The user has chosen another text than the one before.
    void followText();
    void showBeginning();

    QString m_tag;
    QString m_known; // the text that was last shown or told of
    QString m_taken; // the text that was last taken or set
    bool m_silent = false;
    bool m_dropped = false;
    bool m_dropAfterCheck = false;
};
