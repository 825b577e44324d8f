#include "platform/controls/ComboField.h"

#include "platform/controls/ComboAccessible.h"
#include "platform/system/GermanDialogs.h"

#include <QAbstractItemView>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

ComboField::ComboField(QWidget* parent) : QComboBox(parent), CheckedField(static_cast<QWidget&>(*this))
{
    constexpr int FewestCharacters = 10;
    makeCombosAccessible();
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    setFocusPolicy(Qt::StrongFocus);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon); // not by the texts: that would read all rows
    setMinimumContentsLength(FewestCharacters);
    // Qt would walk the whole list at each loss of focus, and choose a row by itself.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    connect(lineEdit(), &QLineEdit::textChanged, this, [this] {
        if (m_silent || Text() == m_known) return;
        m_known = Text();
        changedByUser();
        typed();
    });
    connect(this, &QComboBox::activated, this, [this] { // also when the row is the one that was current
        m_taken = Text();
        taken();
    });
}

void ComboField::completeText(const QString& text)
{
    const QScopedValueRollback silent(m_silent, true);
    setEditText(text);
}

void ComboField::showText(const QString& text)
{
    completeText(text);
    m_known = text;
    showBeginning();
}

/// Of a text that is longer than the field its beginning tells more than its end. Not while the user is in
/// it.
void ComboField::showBeginning()
{
    if (!hasFocus()) lineEdit()->home(false);
}

void ComboField::setText(const QString& text)
{
    showText(text);
    m_taken = text;
}

void ComboField::enterText(const QString& text)
{
    setEditText(text);
    finish();
}

void ComboField::finish()
{
    const QString text = meant(Text());
    if (text != Text()) showText(text);
    if (text == m_taken) return;
    m_taken = text;
    taken();
}

bool ComboField::accepts()
{
    m_dropAfterCheck = false;
    Cancel cancel;
    Q_EMIT Validate(cancel);
    if (m_dropAfterCheck)
        QMetaObject::invokeMethod(
            this, [this] { setDroppedDown(true); }, Qt::QueuedConnection);
    return !cancel;
}

void ComboField::setDroppedDown(bool dropped)
{
    if (isBeingChecked())
        m_dropAfterCheck = dropped;
    else if (!dropped)
        hidePopup();
    else if (isVisible())
        showPopup();
}

/// Makes the row that the text names the current one, from where the arrow keys go on.
void ComboField::followText()
{
    changeList([this] { setCurrentIndex(rowOf(Text())); });
}

void ComboField::showPopup()
{
    Q_EMIT DropDown();
    followText();
    fitList();
    view()->window()->installEventFilter(this); // a second call has no effect
    QComboBox::showPopup();
    m_dropped = view()->isVisible();
}

bool ComboField::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Hide && m_dropped && watched == view()->window()) {
        m_dropped = false;
        Q_EMIT CloseUp();
    }
    return QComboBox::eventFilter(watched, event);
}

void ComboField::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        finish();
        event->ignore(); // the screen decides where it leads
        return;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: followText(); break;
    default: break;
    }
    QComboBox::keyPressEvent(event);
}

/// Without the focus the wheel belongs to whatever scrolls around us: nobody should change a booking by
/// passing by.
void ComboField::wheelEvent(QWheelEvent* event)
{
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    followText();
    QComboBox::wheelEvent(event);
}

/// The toolkit's menu, in German whatever the host speaks.
void ComboField::contextMenuEvent(QContextMenuEvent* event)
{
    const sys::GermanDialogs german;
    QComboBox::contextMenuEvent(event);
}

void ComboField::focusInEvent(QFocusEvent* event)
{
    QComboBox::focusInEvent(event);
    if (!enters(*event)) return;
    if (!lineEdit()->hasSelectedText()) lineEdit()->end(false); // typing goes on from there
    Q_EMIT GotFocus();
}

void ComboField::focusOutEvent(QFocusEvent* event)
{
    if (keepsFocus(*event)) return;
    QComboBox::focusOutEvent(event);
    if (!leaves(*event)) return;
    showBeginning();
    Q_EMIT LostFocus();
}
