#include "platform/controls/TasteUmsetzen.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>

namespace {

constexpr int EnterCode = 13;
constexpr int F2Code = 113;

void postKey(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    const auto send = [key, modifiers] {
        const QPointer<QWidget> field = QApplication::focusWidget();
        QKeyEvent press(QEvent::KeyPress, key, modifiers);
        if (field) QCoreApplication::sendEvent(field, &press);
        QKeyEvent release(QEvent::KeyRelease, key, modifiers);
        if (field) QCoreApplication::sendEvent(field, &release);
    };
    QMetaObject::invokeMethod(qApp, send, Qt::QueuedConnection);
}

QAbstractButton* pressable(QWidget* widget)
{
    if (qobject_cast<QCheckBox*>(widget) || qobject_cast<QRadioButton*>(widget))
        return nullptr; // the blank ticks them
    return qobject_cast<QAbstractButton*>(widget);
}

} // namespace

void TasteUmsetzen(int& KeyCode)
{
    if (KeyCode == EnterCode) {
        KeyCode = 0;
        postKey(Qt::Key_Tab, Qt::NoModifier);
    } else if (KeyCode == F2Code) {
        postKey(Qt::Key_Down, Qt::AltModifier);
    }
}

FieldKeys::FieldKeys(QWidget& screen) : QObject(&screen), m_screen(screen)
{
    for (QPushButton* const button : screen.findChildren<QPushButton*>())
        button->setAutoDefault(false); // in a dialog Enter would press one that is not focused
    qApp->installEventFilter(this);
}

bool FieldKeys::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || watched != QApplication::focusWidget()) return false;
    auto* const field = static_cast<QWidget*>(watched);
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (field->window() != m_screen.window() || (key->modifiers() & ~Qt::KeypadModifier)) return false;
    if (key->key() == Qt::Key_F2 && qobject_cast<QComboBox*>(field)) {
        int code = F2Code;
        TasteUmsetzen(code);
        return true;
    }
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) return false;
    if (qobject_cast<QPlainTextEdit*>(field) || field->property("KeepsEnter").toBool()) return false;
    if (key->isAutoRepeat()) return true; // a key held too long leaves one field, not all
    if (QAbstractButton* const button = pressable(field)) {
        button->click();
        return true;
    }
    int code = EnterCode;
    TasteUmsetzen(code);
    return true;
}
