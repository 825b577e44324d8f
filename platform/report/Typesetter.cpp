#include "platform/report/Typesetter.h"

#include <QStringList>
#include <QTextBoundaryFinder>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace report {

namespace {

constexpr double PointsPerInch = 72;
constexpr qsizetype KeptWidths = 4096; // of each font
constexpr double NoLigatures =
    1.0 / 64;                  // dots; with any spacing "fl" stays two letters, so that a PDF can be searched
constexpr double Rounding = 1; // dots by which a text may be wider than its room
constexpr double Step = 0.05;  // of a font's size, by which it is made smaller
constexpr int MostSteps = 6;   // smaller is not read easily any more

/// What stands below something else comes after it.
template <class Element>
std::vector<const Element*> fromTopToBottom(const std::vector<Element>& elements)
{
    std::vector<const Element*> sorted;
    sorted.reserve(elements.size());
    for (const Element& element : elements)
        sorted.push_back(&element);
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const Element* a, const Element* b) { return a->y < b->y; });
    return sorted;
}

/// A line, or a filled strip: it keeps its height, where a box grows with what stands in it.
bool isRule(const Box& box)
{
    return box.border == 0 && box.height < box.width;
}

} // namespace

void Block::append(Block below)
{
    for (Fill& fill : below.fills)
        fills.push_back({fill.rect.translated(0, height), fill.color});
    for (const double top : below.tops)
        tops.push_back(top + height);
    for (TextLine& line : below.lines) {
        line.top += height;
        lines.push_back(std::move(line));
    }
    height += below.height;
    if (below.height > 0) last = below.last > 0 ? below.last : below.height;
}

void Block::place(Page& page, QPointF corner) const
{
    for (const Fill& fill : fills)
        page.fills.push_back({fill.rect.translated(corner), fill.color});
    for (TextLine line : lines) {
        line.x += corner.x();
        line.left += corner.x();
        line.top += corner.y();
        page.lines.push_back(std::move(line));
    }
}

Block Typesetter::set(const Bands& bands, const Standing& standing)
{
    Block block;
    for (const Band& band : bands)
        if (holds(band.show, standing)) block.append(set(band, standing));
    return block;
}

Block Typesetter::set(const Band& band, const Standing& standing)
{
    Block block;
    block.tops = {0};
    std::vector<Growth> grown;
    block.height = band.height * DotsPerMm;
    for (const Box& box : band.boxes)
        block.height = std::max(block.height, (box.y + box.height) * DotsPerMm);
    std::vector<const Box*> boxes = fromTopToBottom(band.boxes);
    std::erase_if(boxes, [&](const Box* box) { return !holds(box->show, standing); });
    auto rule =
        std::stable_partition(boxes.begin(), boxes.end(), [](const Box* box) { return !isRule(*box); });
    const auto setRulesAbove = [&](double y) {
        for (; rule != boxes.end() && (*rule)->y < y; ++rule)
            set(**rule, grown, block);
    };
    const auto rules = rule;
    for (const Text* const text : fromTopToBottom(band.texts)) {
        if (!holds(text->show, standing)) continue;
        setRulesAbove(text->y);
        set(*text, standing, block, grown);
    }
    setRulesAbove(std::numeric_limits<double>::infinity());
    for (auto box = boxes.begin(); box != rules; ++box)
        set(**box, grown, block);
    block.height += pushed(block.height, 0, std::numeric_limits<double>::infinity(), grown);
    return block;
}

void Typesetter::set(const Text& text, const Standing& standing, Block& block, std::vector<Growth>& grown)
{
    const QString shown = textOf(text.text, text.format, standing);
    const double left = text.x * DotsPerMm;
    const double width = text.width * DotsPerMm;
    const int font = fittingFont(text, shown, width);
    const DocumentFont usual = m_fonts[static_cast<std::size_t>(fontOf(text.font))].document;
    const DocumentFont& fitting = m_fonts[static_cast<std::size_t>(font)].document;
    const double given = std::max(text.height * DotsPerMm, usual.height);
    const double top = text.y * DotsPerMm;
    const double down = pushed(top, left, left + width, grown);

    const QStringList lines = text.isNumber() ? QStringList(shown) : broken(shown, width, font);
    double y = top + down + usual.ascent - fitting.ascent; // on one line with its neighbours
    for (const QString& line : lines) {
        if (!line.isEmpty()) {
            block.lines.push_back({line, left, y, left, width, text.align, font});
            align(block.lines.back());
        }
        y += fitting.height;
    }
    const double growth = std::max(0.0, y - (top + down) - given);
    if (down + growth > 0) grown.push_back({top + given / 2, down + growth, left, left + width});
    block.height = std::max(block.height, top + given);
}

void Typesetter::set(const Box& box, std::vector<Growth>& grown, Block& block)
{
    const double top = box.y * DotsPerMm;
    const double bottom = (box.y + box.height) * DotsPerMm;
    const double left = box.x * DotsPerMm;
    const double right = (box.x + box.width) * DotsPerMm;
    const double down = pushed(top, left, right, grown);
    const double to = bottom + (isRule(box) ? down : pushed(bottom, left, right, grown));
    if (isRule(box) && down > 0) grown.push_back({top, down, left, right});
    const QRectF rect(QPointF(left, top + down), QPointF(right, to));
    if (box.fill) block.fills.push_back({rect, *box.fill});
    if (box.border <= 0) return;
    const double border = box.border * DotsPerMm;
    block.fills.push_back({QRectF(rect.left(), rect.top(), rect.width(), border), box.color});
    block.fills.push_back({QRectF(rect.left(), rect.bottom() - border, rect.width(), border), box.color});
    block.fills.push_back({QRectF(rect.left(), rect.top(), border, rect.height()), box.color});
    block.fills.push_back({QRectF(rect.right() - border, rect.top(), border, rect.height()), box.color});
}

/// How far what stands at this height and between these edges moves down.
double Typesetter::pushed(double y, double left, double right, const std::vector<Growth>& grown)
{
    double by = 0;
    for (const Growth& growth : grown)
        if (growth.middle <= y && growth.left < right && left < growth.right) by = std::max(by, growth.by);
    return by;
}

/// The top of the band that is cut here, where no line of it would stay above: nor do its rules then.
double Typesetter::fromBandsTop(const Block& block, double at)
{
    double top = 0;
    for (const double one : block.tops)
        if (one <= at) top = std::max(top, one);
    const bool keepsLine = std::any_of(block.lines.begin(), block.lines.end(), [&](const TextLine& line) {
        return line.top >= top && line.top < at;
    });
    return keepsLine ? at : top;
}

Block Typesetter::cut(Block& block, double height) const
{
    double at = std::min(height, block.height);
    for (const TextLine& line : block.lines)
        if (bottom(line) > height) at = std::min(at, line.top);
    double lineAbove = 0; // of the last band
    for (const TextLine& line : block.lines)
        if (line.top < block.height - block.last) lineAbove = std::max(lineAbove, line.top);
    if (lineAbove > 0) at = std::min(at, lineAbove);
    at = fromBandsTop(block, at);
    if (at <= 0) at = std::min(height, block.height); // a line higher than the page is painted over its edge

    Block above;
    Block below;
    above.height = at;
    below.height = block.height - at;
    below.last = std::min(block.last, below.height);
    below.rows = std::max(0.0, block.rows - at);
    for (const double top : block.tops)
        if (top >= at) below.tops.push_back(top - at);
    for (TextLine& line : block.lines) {
        Block& part = line.top < at ? above : below;
        if (&part == &below) line.top -= at;
        part.lines.push_back(std::move(line));
    }
    for (const Fill& fill : block.fills) {
        const QRectF top = fill.rect.intersected(QRectF(0, 0, fill.rect.right(), at));
        const QRectF bottom = fill.rect.intersected(QRectF(0, at, fill.rect.right(), below.height));
        if (!top.isEmpty()) above.fills.push_back({top, fill.color});
        if (!bottom.isEmpty()) below.fills.push_back({bottom.translated(0, -at), fill.color});
    }
    block = std::move(below);
    return above;
}

void Typesetter::align(TextLine& line)
{
    line.x = line.left;
    if (line.align == Qt::AlignLeft) return;
    const double free = line.width - widthOf(line.text, line.font);
    line.x += line.align == Qt::AlignRight ? free : free / 2;
}

double Typesetter::bottom(const TextLine& line) const
{
    return line.top + m_fonts[static_cast<std::size_t>(line.font)].document.height;
}

std::vector<DocumentFont> Typesetter::fonts() const
{
    std::vector<DocumentFont> fonts;
    for (const Measured& measured : m_fonts)
        fonts.push_back(measured.document);
    return fonts;
}

int Typesetter::fontOf(const Font& font)
{
    const auto found = std::find_if(m_fonts.begin(), m_fonts.end(),
                                    [&font](const Measured& known) { return known.font == font; });
    if (found != m_fonts.end()) return static_cast<int>(found - m_fonts.begin());
    QFont made(m_family);
    made.setPixelSize(static_cast<int>(std::lround(font.size / PointsPerInch * DotsPerInch)));
    made.setBold(font.bold);
    made.setItalic(font.italic);
    made.setHintingPreference(QFont::PreferNoHinting);
    made.setLetterSpacing(QFont::AbsoluteSpacing, NoLigatures);
    const QFontMetricsF metrics(made);
    m_fonts.push_back({font, {made, font.color, metrics.ascent(), metrics.height()}, metrics, {}});
    return static_cast<int>(m_fonts.size()) - 1;
}

/// The text's font; or a smaller one where only that keeps a word from being broken, or a number from
/// standing out.
int Typesetter::fittingFont(const Text& text, const QString& shown, double width)
{
    const int whole = fontOf(text.font);
    if (widthOf(shown, whole) <= width + Rounding) return whole;
    Font smaller = text.font;
    for (int step = 0; step <= MostSteps; ++step) {
        smaller.size = text.font.size * (1 - step * Step);
        const int tried = fontOf(smaller);
        const double widest = text.isNumber() ? widthOf(shown, tried) : widestWord(shown, tried);
        if (widest <= width + Rounding) return tried;
    }
    return whole;
}

double Typesetter::widestWord(const QString& text, int font)
{
    double widest = 0;
    QTextBoundaryFinder boundary(QTextBoundaryFinder::Line, text);
    for (qsizetype from = 0, to = 0; (to = boundary.toNextBoundary()) >= 0; from = to)
        widest = std::max(widest, widthOf(text.mid(from, to - from).trimmed(), font));
    return widest;
}

double Typesetter::widthOf(const QString& text, int font)
{
    Measured& measured = m_fonts[static_cast<std::size_t>(font)];
    const auto known = measured.widths.constFind(text);
    if (known != measured.widths.constEnd()) return *known;
    if (measured.widths.size() >= KeptWidths) measured.widths.clear();
    return *measured.widths.insert(text, measured.metrics.horizontalAdvance(text));
}

/// The lines of a text: those it has, and more where one is too wide. Words are broken only when they alone
/// are so at any size.
QStringList Typesetter::broken(const QString& text, double width, int font)
{
    QStringList lines;
    for (const QString& line : QString(text).replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').split(u'\n')) {
        if (widthOf(line, font) <= width + Rounding) {
            lines.append(line);
            continue;
        }
        QTextLayout layout(line, m_fonts[static_cast<std::size_t>(font)].document.font);
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine part = layout.createLine(); part.isValid(); part = layout.createLine()) {
            part.setLineWidth(width + Rounding);
            lines.append(line.mid(part.textStart(), part.textLength()).trimmed());
        }
        layout.endLayout();
    }
    return lines;
}

} // namespace report
