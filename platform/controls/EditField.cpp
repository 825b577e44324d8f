#include "platform/controls/EditField.h"

#include "platform/system/GermanDialogs.h"

#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QStyle>

namespace {

bool isChord(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers held =
        event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return held && held != (Qt::ControlModifier | Qt::AltModifier); // both together are AltGr
}

bool typesText(const QKeyEvent& event)
{
    return !event.text().isEmpty() && event.text().front().isPrint() && !isChord(event);
}

bool countsForKeyUp(const QKeyEvent& event)
{
    if (event.isAutoRepeat() || isChord(event)) return false;
    switch (event.key()) {
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
    case Qt::Key_Return:
    case Qt::Key_Enter: return true;
    default: return typesText(event);
    }
}

} // namespace

EditField::EditField(QWidget* parent) : QLineEdit(parent), CheckedField(static_cast<QWidget&>(*this))
{
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (m_silent) return;
        changedByUser();
        textChangedByUser();
    });
}

void EditField::setText(const QString& text)
{
    const QScopedValueRollback silent(m_silent, true);
    QLineEdit::setText(text);
}

void EditField::enterText(const QString& text)
{
    QLineEdit::setText(text);
    finish();
}

void EditField::setLocked(bool locked)
{
    setReadOnly(locked);
    setFrame(!locked);
    const int frame = locked ? style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this) : 0;
    setTextMargins(frame, frame, frame, frame); // the text stays in line with the fields that have a frame
    setFocusPolicy(locked ? Qt::ClickFocus : Qt::StrongFocus);
    updateLook();
}

void EditField::textChangedByUser()
{
    Q_EMIT Change();
}

bool EditField::accepts()
{
    Cancel cancel;
    Q_EMIT Validate(cancel);
    return !cancel;
}

QString EditField::passedThroughKeyPress(const QString& typed)
{
    QString passed;
    for (QChar character : typed) {
        Q_EMIT KeyPress(character);
        if (!character.isNull()) passed += character;
    }
    return passed;
}

void EditField::keyPressEvent(QKeyEvent* event)
{
    if (countsForKeyUp(*event)) m_pressed.insert(event->key());
    if (isReadOnly() || !typesText(*event)) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    const QString passed = passedThroughKeyPress(event->text());
    if (passed.isEmpty()) return;
    QKeyEvent typed(event->type(), event->key(), event->modifiers(), passed, event->isAutoRepeat());
    QLineEdit::keyPressEvent(&typed);
    event->setAccepted(typed.isAccepted());
}

void EditField::keyReleaseEvent(QKeyEvent* event)
{
    QLineEdit::keyReleaseEvent(event);
    if (!event->isAutoRepeat() && m_pressed.remove(event->key())) Q_EMIT KeyUp();
}

/// A character that was composed, by a dead key or an input method, comes without presses and releases of its
/// own.
void EditField::inputMethodEvent(QInputMethodEvent* event)
{
    if (isReadOnly() || event->commitString().isEmpty()) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent passed(event->preeditString(), event->attributes());
    passed.setCommitString(passedThroughKeyPress(event->commitString()), event->replacementStart(),
                           event->replacementLength());
    QLineEdit::inputMethodEvent(&passed);
    Q_EMIT KeyUp();
}

/// The toolkit's menu, in German whatever the host speaks.
void EditField::contextMenuEvent(QContextMenuEvent* event)
{
    const sys::GermanDialogs german;
    QLineEdit::contextMenuEvent(event);
}

void EditField::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (!enters(*event)) return;
    entered(event->reason());
    Q_EMIT GotFocus();
}

void EditField::focusOutEvent(QFocusEvent* event)
{
    if (keepsFocus(*event)) return;
    m_pressed.clear();
    QLineEdit::focusOutEvent(event);
    if (!leaves(*event)) return;
    left();
    Q_EMIT LostFocus();
}

void EditField::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) updateLook();
}

QPalette EditField::look() const
{
    QPalette look;
    if (isReadOnly()) {
        // The ground around it, whatever that is: in a frame it is another one than in the window. NumberEdit
        // asks how dark.
        QColor ground = parentWidget() ? parentWidget()->palette().color(QPalette::Window) : QColor();
        ground.setAlpha(0);
        look.setColor(QPalette::Base, ground);
    }
    return look;
}

void EditField::updateLook()
{
    const QPalette wanted = look();
    if (wanted.resolveMask() != 0 || testAttribute(Qt::WA_SetPalette)) setPalette(wanted);
}
