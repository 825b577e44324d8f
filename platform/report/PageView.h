#pragma once

#include "platform/report/Document.h"

#include <QAbstractScrollArea>

namespace report {

/// The pages of a document one below the other, each with its number from 0. Keys: arrows scroll; Page Up and
/// Down turn where a whole page is on view and scroll by the window's height where not, with Ctrl they always
/// turn; Home and End lead to the ends, Ctrl with plus and minus changes the size.
class PageView final : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit PageView(const Document& document, QWidget* parent = nullptr); ///< The document must outlive it.

    enum class Fit { Page, Width, None };

    int pageCount() const { return static_cast<int>(m_document.pages.size()); }
    int currentPage() const; ///< The one that takes the upper half of the window.
    void showPage(int page); ///< Its top to the window's top; a number beyond the ends counts as the end.

    Fit fit() const { return m_fit; }
    void setFit(Fit fit);        ///< Follows the size of the window.
    void setZoom(double factor); ///< 1 is the size on paper; bounded to what makes sense on a screen.
    double zoom() const { return m_zoom; }

Q_SIGNALS:
    void pageChanged(int page);
    void zoomChanged(); ///< Also by the window's size.

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    double scale() const; ///< Pixels of a dot.
    QSizeF pageSize() const;
    double step() const; ///< From the top of a page to that of the next.
    QRectF pageRect(int page) const;
    void fitPage();
    void applyZoom(double zoom);
    bool turns(const QKeyEvent& event) const;

    const Document& m_document;
    Fit m_fit = Fit::None;
    double m_zoom = 1;
};

} // namespace report
