#include "platform/report/PageView.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace report {

namespace {

constexpr double Gap = 12; // pixels around a page
constexpr double SmallestZoom = 0.1;
constexpr double LargestZoom = 5;
constexpr double ZoomStep = 1.25;
constexpr int ScrollStep = 40; // pixels

} // namespace

PageView::PageView(const Document& document, QWidget* parent)
    : QAbstractScrollArea(parent), m_document(document)
{
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setBackgroundRole(QPalette::Dark);
    viewport()->setAutoFillBackground(true);
    verticalScrollBar()->setSingleStep(ScrollStep);
    horizontalScrollBar()->setSingleStep(ScrollStep);
    // so the room for a page does not depend on the size that it is fitted to
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    applyZoom(m_zoom);
}

int PageView::currentPage() const
{
    const double middle = verticalScrollBar()->value() + viewport()->height() / 2.0;
    return std::clamp(static_cast<int>(middle / step()), 0, pageCount() - 1);
}

void PageView::showPage(int page)
{
    const int shown = std::clamp(page, 0, pageCount() - 1);
    verticalScrollBar()->setValue(static_cast<int>(std::lround(shown * step())));
}

void PageView::setFit(Fit fit)
{
    m_fit = fit;
    fitPage();
}

void PageView::setZoom(double factor)
{
    m_fit = Fit::None;
    applyZoom(factor);
}

void PageView::fitPage()
{
    if (m_fit == Fit::None) return;
    const QSizeF page = pageSize() / m_zoom;
    const double byWidth = (viewport()->width() - 2 * Gap) / page.width();
    const double byHeight = (viewport()->height() - 2 * Gap) / page.height();
    applyZoom(m_fit == Fit::Width ? byWidth : std::min(byWidth, byHeight));
}

/// The page that is on view stays, with the same part of it.
void PageView::applyZoom(double zoom)
{
    const double position = verticalScrollBar()->value() / step();
    m_zoom = std::clamp(zoom, SmallestZoom, LargestZoom);
    const double height = pageCount() * step() + Gap;
    const double width = pageSize().width() + 2 * Gap;
    verticalScrollBar()->setRange(0,
                                  std::max(0, static_cast<int>(std::lround(height)) - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    horizontalScrollBar()->setRange(0,
                                    std::max(0, static_cast<int>(std::lround(width)) - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    verticalScrollBar()->setValue(static_cast<int>(std::lround(position * step())));
    viewport()->update();
    Q_EMIT zoomChanged();
    Q_EMIT pageChanged(currentPage());
}

double PageView::scale() const
{
    return m_zoom * logicalDpiX() / DotsPerInch;
}

QSizeF PageView::pageSize() const
{
    return m_document.pageSize() * scale();
}

double PageView::step() const
{
    return pageSize().height() + Gap;
}

QRectF PageView::pageRect(int page) const
{
    const double left = std::max(Gap, (viewport()->width() - pageSize().width()) / 2);
    const QPointF corner(left - horizontalScrollBar()->value(),
                         page * step() + Gap - verticalScrollBar()->value());
    return {corner, pageSize()};
}

void PageView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    for (int page = 0; page < pageCount(); ++page) {
        const QRectF rect = pageRect(page);
        if (rect.top() > event->rect().bottom()) break;
        if (!rect.intersects(event->rect())) continue;
        painter.fillRect(rect, Qt::white);
        painter.save();
        painter.setClipRect(rect);
        painter.translate(rect.topLeft());
        painter.scale(scale(), scale());
        m_document.paint(painter, page);
        painter.restore();
    }
}

void PageView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    if (m_fit == Fit::None)
        applyZoom(m_zoom);
    else
        fitPage();
}

bool PageView::turns(const QKeyEvent& event) const
{
    return event.modifiers().testFlag(Qt::ControlModifier) || pageSize().height() <= viewport()->height();
}

void PageView::keyPressEvent(QKeyEvent* event)
{
    const bool withCtrl = event->modifiers().testFlag(Qt::ControlModifier);
    switch (event->key()) {
    case Qt::Key_PageDown:
        if (!turns(*event)) break;
        showPage(currentPage() + 1);
        return;
    case Qt::Key_PageUp:
        if (!turns(*event)) break;
        showPage(currentPage() - 1);
        return;
    case Qt::Key_Home: showPage(0); return;
    case Qt::Key_End: showPage(pageCount() - 1); return;
    case Qt::Key_Plus:
        if (withCtrl) setZoom(m_zoom * ZoomStep);
        return;
    case Qt::Key_Minus:
        if (withCtrl) setZoom(m_zoom / ZoomStep);
        return;
    default: break;
    }
    QAbstractScrollArea::keyPressEvent(event);
}

void PageView::wheelEvent(QWheelEvent* event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    setZoom(event->angleDelta().y() > 0 ? m_zoom * ZoomStep : m_zoom / ZoomStep);
}

void PageView::scrollContentsBy(int, int)
{
    viewport()->update();
    Q_EMIT pageChanged(currentPage());
}

} // namespace report
