#include "platform/controls/GridHeader.h"

#include <QEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QScopedValueRollback>

GridHeader::GridHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent), m_caption(new QLabel(this))
{
    m_caption->setTextFormat(Qt::PlainText);
    m_caption->setAutoFillBackground(true);
    m_caption->hide();
    setSectionsClickable(true);
    setStretchLastSection(true);
    setResizeContentsPrecision(0); // the rows on view: asking all of them would read a whole journal
    setTextElideMode(Qt::ElideRight);
    connect(this, &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (m_sizing && column != logicalIndex(count() - 1))
            Q_EMIT resizedByUser(column, width); // the last one stretches
    });
}

void GridHeader::setCaption(const QString& caption)
{
    m_text = caption;
    showCaption();
}

void GridHeader::setSearch(const QString& text)
{
    m_search = text;
    showCaption();
}

void GridHeader::showCaption()
{
    QString shown = m_text;
    if (!m_text.isEmpty() && !m_search.isEmpty()) shown += u"  –  ";
    shown += m_search;
    const bool heightChanges = shown.isEmpty() != m_caption->isHidden();
    m_caption->setText(shown);
    m_caption->setHidden(shown.isEmpty());
    if (heightChanges) placeCaption();
}

int GridHeader::captionHeight() const
{
    if (m_caption->isHidden()) return 0;
    return m_caption->sizeHint().height() + 2 * style()->pixelMetric(QStyle::PM_HeaderMargin);
}

QSize GridHeader::sizeHint() const
{
    return QHeaderView::sizeHint() + QSize(0, captionHeight());
}

int GridHeader::widthFor(const QString& columnCaption, bool sorted) const
{
    QFont marked = font();
    marked.setBold(sorted);
    const int mark = sorted ? style()->pixelMetric(QStyle::PM_HeaderMarkSize) : 0;
    return QFontMetrics(marked).horizontalAdvance(columnCaption) + mark +
           3 * style()->pixelMetric(QStyle::PM_HeaderMargin);
}

void GridHeader::placeCaption()
{
    setViewportMargins(0, captionHeight(), 0, 0);
    m_caption->setMargin(0);
    m_caption->setIndent(style()->pixelMetric(QStyle::PM_HeaderMargin));
    m_caption->setGeometry(0, 0, width(), captionHeight());
    Q_EMIT geometriesChanged();
}

bool GridHeader::event(QEvent* event)
{
    const bool handled = QHeaderView::event(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) placeCaption();
    return handled;
}

void GridHeader::resizeEvent(QResizeEvent* event)
{
    QHeaderView::resizeEvent(event);
    m_caption->setGeometry(0, 0, width(), captionHeight());
}

void GridHeader::mousePressEvent(QMouseEvent* event)
{
    m_pressedBeside = event->button() == Qt::LeftButton && logicalIndexAt(event->position().toPoint()) < 0;
    QHeaderView::mousePressEvent(event);
}

void GridHeader::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QScopedValueRollback sizing(m_sizing,
                                      true); // on a divider it gives the column the width of its contents
    QHeaderView::mouseDoubleClickEvent(event);
}

void GridHeader::mouseMoveEvent(QMouseEvent* event)
{
    const QScopedValueRollback sizing(m_sizing, event->buttons().testFlag(Qt::LeftButton)); // by its divider
    QHeaderView::mouseMoveEvent(event);
}

void GridHeader::mouseReleaseEvent(QMouseEvent* event)
{
    QHeaderView::mouseReleaseEvent(event);
    if (std::exchange(m_pressedBeside, false) && logicalIndexAt(event->position().toPoint()) < 0)
        Q_EMIT emptyClicked();
}
