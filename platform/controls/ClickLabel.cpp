#include "platform/controls/ClickLabel.h"

#include <QPainter>
#include <QShortcut>
#include <QStyle>

using namespace Qt::StringLiterals;

ClickLabel::ClickLabel(QWidget* parent) : QAbstractButton(parent)
{
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QAbstractButton::clicked, this, &ClickLabel::Click);
}

void ClickLabel::setBuddy(QWidget& field)
{
    QString name = text();
    field.setAccessibleName(name.remove(u'&').remove(u':'));
    auto* const shortcut = new QShortcut(QKeySequence(Qt::Key_F5), &field);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, &QAbstractButton::click);
}

QSize ClickLabel::sizeHint() const
{
    return fontMetrics().size(Qt::TextShowMnemonic, text());
}

void ClickLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QFont underlined = font();
    underlined.setUnderline(true);
    painter.setFont(underlined);
    const int flags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic;
    style()->drawItemText(&painter, rect(), flags, palette(), isEnabled(), text(), foregroundRole());
}
