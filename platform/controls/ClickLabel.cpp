#include "platform/controls/ClickLabel.h"

#include "platform/controls/Tasten.h"

#include <QPainter>
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
    bindeTaste(
        Taste::NeuLesen, field, [this] { click(); }, Qt::WidgetShortcut);
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
