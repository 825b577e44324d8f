#include "platform/report/Document.h"

#include <QPainter>

namespace report {

QSizeF Document::pageSize() const
{
    return layout.fullRect(QPageLayout::Millimeter).size() * DotsPerMm;
}

void Document::paint(QPainter& painter, int page) const
{
    const Page& shown = pages[static_cast<std::size_t>(page)];
    for (const Fill& fill : shown.fills)
        painter.fillRect(fill.rect, QColor(fill.color));
    int current = -1;
    for (const TextLine& line : shown.lines) {
        const DocumentFont& font = fonts[static_cast<std::size_t>(line.font)];
        if (line.font != current) {
            painter.setFont(font.font);
            painter.setPen(QColor(font.color));
            current = line.font;
        }
        painter.drawText(QPointF(line.x, line.top + font.ascent), line.text);
    }
    if (!shown.picture) return;
    painter.save();
    shown.picture(painter);
    painter.restore();
}

} // namespace report
