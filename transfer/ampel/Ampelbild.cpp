#include "transfer/ampel/Ampelbild.h"

#include <QPainter>

using namespace Qt::StringLiterals;

/// Outside any namespace, as the macro demands: the linker drops the icons of a static library that nobody
/// names.
static void ladeBilder()
{
    Q_INIT_RESOURCE(ampel);
}

Ampelbild::Ampelbild(const QString& name, const QString& bedeutung, QWidget& ampel) : QWidget(&ampel)
{
    ladeBilder();
    setObjectName(name);
    setAccessibleName(bedeutung);
    setToolTip(bedeutung);
    m_bild.addFile(u":/ampel/"_s + name + u".ico"_s);
    m_bild.addFile(u":/ampel/"_s + name + u"32.ico"_s);
    setFixedSize(16, 16);
}

void Ampelbild::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform); // above 200 % there is no icon of the size
    m_bild.paint(&painter, rect());
}
