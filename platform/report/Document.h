#pragma once

#include <QColor>
#include <QFont>
#include <QPageLayout>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <functional>
#include <vector>

class QPainter;

namespace report {

/// Lengths on finished pages are dots of this size, whatever is painted on: lines break alike on screen and
/// paper.
constexpr double DotsPerInch = 1200;
constexpr double DotsPerMm = DotsPerInch / 25.4;

struct DocumentFont {
    QFont font; ///< Its pixels are dots.
    QRgb color = 0xFF000000;
    double ascent = 0;
    double height = 0; ///< Of a line.
};

/// One line of text, ready to be painted.
struct TextLine {
    QString text;
    double x = 0; ///< Where its first character begins.
    double top = 0;
    double left = 0; ///< Of the room it is aligned in.
    double width = 0;
    Qt::AlignmentFlag align = Qt::AlignLeft;
    int font = 0; ///< Place in Document::fonts.
};

struct Fill {
    QRectF rect;
    QRgb color = 0xFF000000;
};

struct Page {
    std::vector<Fill> fills; ///< Lie below the lines.
    std::vector<TextLine> lines;
    std::function<void(QPainter&)> picture; ///< Paints what is neither, in dots; empty: nothing.
};

/// A report set in pages. It holds all it shows: the files it was made from may be gone.
struct Document {
    QString title;
    QPageLayout layout; ///< Without margins: pages are painted from the paper's corner on.
    std::vector<DocumentFont> fonts;
    std::vector<Page> pages;

    QSizeF pageSize() const; ///< Dots.
    /// Paints one page, from 0; the painter's unit is a dot, its origin the paper's corner.
    void paint(QPainter& painter, int page) const;
};

} // namespace report
