#include "platform/controls/NumberEdit.h"

#include "platform/controls/NumberEntry.h"
#include "platform/jet/NumberFormat.h"
#include "platform/system/Messages.h"

#include <QKeyEvent>
#include <QValidator>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView ToShow = u"##,##0.00########";
constexpr qsizetype Decimals = 10; // that a value holds

/// The pattern without thousands and with all decimals: what the user changes must be what is there.
QString toEdit(const QString& pattern)
{
    const qsizetype fixed = pattern.section(u'.', 1).count(u'0');
    return u"0."_s + QString(fixed, u'0') + QString(Decimals - fixed, u'#');
}

class NumberValidator final : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& input, int&) const override
    {
        switch (readTyped(input).state) {
        case TypedNumber::State::Complete: return Acceptable;
        case TypedNumber::State::Unfinished: return Intermediate;
        case TypedNumber::State::Impossible: return Invalid;
        }
        Q_UNREACHABLE();
    }
};

/// Red on the ground it stands on, which is the window's where the field has none of its own.
QColor red(const QPalette& palette)
{
    const QColor base = palette.color(QPalette::Base);
    const QColor ground = base.alpha() == 0 ? palette.color(QPalette::Window) : base;
    return ground.lightness() < 128 ? QColor(255, 110, 110) : QColor(192, 0, 0);
}

} // namespace

NumberEdit::NumberEdit(QWidget* parent) : EditField(parent), m_pattern(ToShow.toString())
{
    setAlignment(Qt::AlignRight);
    setInputMethodHints(Qt::ImhFormattedNumbersOnly);
    setValidator(new NumberValidator(this));
    show();
}

void NumberEdit::setNumberFormat(const QString& pattern)
{
    m_pattern = pattern;
    show();
}

void NumberEdit::setValue(double value)
{
    take(value);
    show();
    if (isEntered()) selectAll();
}

void NumberEdit::enterValue(double value)
{
    const double before = m_value;
    setValue(value);
    Q_EMIT ValueWritten();
    if (m_value == before) return;
    changedByUser();
    Q_EMIT Change();
}

void NumberEdit::take(double value)
{
    const bool wasNegative = m_value < 0;
    m_value = withoutDust(value);
    if (wasNegative != (m_value < 0)) updateLook();
}

QString NumberEdit::shown() const
{
    const bool edited = isEntered() && !Locked();
    return jet::formatted(m_value, edited ? toEdit(m_pattern) : m_pattern);
}

void NumberEdit::show()
{
    EditField::setText(shown());
}

bool NumberEdit::isNumber() const
{
    return readTyped(text()).state == TypedNumber::State::Complete || text() == shown();
}

void NumberEdit::textChangedByUser()
{
    const TypedNumber typed = readTyped(text());
    if (typed.state != TypedNumber::State::Complete || withoutDust(typed.value) == m_value) return;
    take(typed.value);
    Q_EMIT Change();
}

void NumberEdit::finish()
{
    if (isNumber()) show();
}

bool NumberEdit::accepts()
{
    if (isNumber()) return EditField::accepts();
    sys::critical(
        u"\""_s + text() +
        u"\" ist keine Zahl. Bitte trennen Sie Dezimalstellen mit einem Komma; ein Punkt kann nur Tausender "
        u"gruppieren."_s);
    return false;
}

void NumberEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Period || !(event->modifiers() & Qt::KeypadModifier)) {
        EditField::keyPressEvent(event);
        return;
    }
    QKeyEvent comma(event->type(), Qt::Key_Comma, event->modifiers(), u","_s, event->isAutoRepeat());
    EditField::keyPressEvent(&comma);
}

void NumberEdit::entered(Qt::FocusReason reason)
{
    m_enteredByMouse = reason == Qt::MouseFocusReason;
    show();
    selectAll();
}

void NumberEdit::mouseReleaseEvent(QMouseEvent* event)
{
    EditField::mouseReleaseEvent(event);
    // The press that brought the focus has set the cursor; only a selection drawn with the mouse is the
    // user's wish.
    if (m_enteredByMouse && !hasSelectedText()) selectAll();
    m_enteredByMouse = false;
}

QPalette NumberEdit::look() const
{
    QPalette look = EditField::look();
    if (m_value < 0) look.setColor(QPalette::Text, red(look));
    return look;
}
