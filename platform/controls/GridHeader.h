#pragma once

#include <QHeaderView>

class QLabel;

/// The header of a DataGrid: above the columns' captions a line with the caption of the whole grid.
class GridHeader : public QHeaderView {
    Q_OBJECT

public:
    explicit GridHeader(QWidget* parent);

    QString Caption() const { return m_text; }
    void setCaption(const QString& caption);
    void setSearch(const QString& text); ///< Stands beside the caption; empty: nothing does.

    QSize sizeHint() const override;
    int widthFor(const QString& columnCaption,
                 bool sorted) const; ///< Pixels for a caption, with the mark of the order.

Q_SIGNALS:
    void emptyClicked(); ///< Beside the columns.
    void resizedByUser(int column,
                       int width); ///< By dragging the divider behind it or by a double click there.

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int captionHeight() const;
    void placeCaption();
    void showCaption();

    QLabel* m_caption;
    QString m_text;
    QString m_search;
    bool m_pressedBeside = false;
    bool m_sizing = false; // what the mouse does now gives a column its width
};
