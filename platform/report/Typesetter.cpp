#include "platform/report/Typesetter.h"

#include <QStringList>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace report {

namespace {

constexpr double PointsPerInch = 72;
constexpr qsizetype KeptWidths = 4096;   // of each font
constexpr double NoLigatures = 1.0 / 64; // dots; with any spacing "fl" stays two letters, so that a PDF can be searched
constexpr double Rounding = 1;           // dots by which a text may be wider than its room

/// Fields that stand below others come after them.
std::vector<const Text*> fromTopToBottom(const std::vector<Text>& texts)
{
    std::vector<const Text*> sorted;
    sorted.reserve(texts.size());
    for (const Text& text : texts)
        sorted.push_back(&text);
    std::stable_sort(sorted.begin(), sorted.end(), [](const Text* a, const Text* b) { return a->y < b->y; });
    return sorted;
}

} // namespace

void Block::append(Block below)
{
    for (Fill& fill : below.fills)
        fills.push_back({fill.rect.translated(0, height), fill.color});
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
    std::vector<Growth> grown;
    block.height = band.height * DotsPerMm;
    for (const Box& box : band.boxes)
        block.height = std::max(block.height, (box.y + box.height) * DotsPerMm);
    for (const Text* const text : fromTopToBottom(band.texts))
        if (holds(text->show, standing)) set(*text, standing, block, grown);
    for (const Box& box : band.boxes)
        if (holds(box.show, standing)) set(box, grown, block);
    block.height += pushed(block.height, grown);
    return block;
}

void Typesetter::set(const Text& text, const Standing& standing, Block& block, std::vector<Growth>& grown)
{
    const int font = fontOf(text.font);
    const double lineHeight = m_fonts[static_cast<std::size_t>(font)].document.height;
    const double left = text.x * DotsPerMm;
    const double width = text.width * DotsPerMm;
    const double given = std::max(text.height * DotsPerMm, lineHeight);
    const double top = text.y * DotsPerMm;
    const double down = pushed(top, grown);

    const QString shown = textOf(text.text, text.format, standing);
    const QStringList lines = text.isNumber() ? QStringList(shown) : broken(shown, width, font);
    double y = top + down;
    for (const QString& line : lines) {
        if (!line.isEmpty()) {
            block.lines.push_back({line, left, y, left, width, text.align, font});
            align(block.lines.back());
        }
        y += lineHeight;
    }
    const double growth = std::max(0.0, y - (top + down) - given);
    if (down + growth > 0) grown.push_back({top + given / 2, down + growth});
    block.height = std::max(block.height, top + given);
}

void Typesetter::set(const Box& box, const std::vector<Growth>& grown, Block& block)
{
    const bool isRule = box.border == 0 && box.height < box.width;
    const double top = box.y * DotsPerMm;
    const double bottom = (box.y + box.height) * DotsPerMm;
    const double from = top + pushed(top, grown);
    const double to = bottom + pushed(isRule ? top : bottom, grown);
    const QRectF rect(QPointF(box.x * DotsPerMm, from), QPointF((box.x + box.width) * DotsPerMm, to));
    if (box.fill) block.fills.push_back({rect, *box.fill});
    if (box.border <= 0) return;
    const double border = box.border * DotsPerMm;
    block.fills.push_back({QRectF(rect.left(), rect.top(), rect.width(), border), box.color});
    block.fills.push_back({QRectF(rect.left(), rect.bottom() - border, rect.width(), border), box.color});
    block.fills.push_back({QRectF(rect.left(), rect.top(), border, rect.height()), box.color});
    block.fills.push_back({QRectF(rect.right() - border, rect.top(), border, rect.height()), box.color});
}

/// How far what stands at this height moves down.
double Typesetter::pushed(double y, const std::vector<Growth>& grown)
{
    double by = 0;
    for (const Growth& growth : grown)
        if (growth.middle <= y) by = std::max(by, growth.by);
    return by;
}

Block Typesetter::cut(Block& block, double height) const
{
    double at = std::min(height, block.height);
    const auto staysAbove = [&](const TextLine& line) {
        return line.top + m_fonts[static_cast<std::size_t>(line.font)].document.height <= height;
    };
    for (const TextLine& line : block.lines)
        if (!staysAbove(line)) at = std::min(at, line.top);
    double lineAbove = 0; // of the last band
    for (const TextLine& line : block.lines)
        if (line.top < block.height - block.last) lineAbove = std::max(lineAbove, line.top);
    if (lineAbove > 0 && block.last < height) at = std::min(at, lineAbove);
    if (at <= 0) at = std::min(height, block.height); // a line higher than the page is painted over its edge

    Block above;
    Block below;
    above.height = at;
    below.height = block.height - at;
    below.last = std::min(block.last, below.height);
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

std::vector<DocumentFont> Typesetter::fonts() const
{
    std::vector<DocumentFont> fonts;
    for (const Measured& measured : m_fonts)
        fonts.push_back(measured.document);
    return fonts;
}

int Typesetter::fontOf(const Font& font)
{
    const auto found =
        std::find_if(m_fonts.begin(), m_fonts.end(), [&font](const Measured& known) { return known.font == font; });
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

double Typesetter::widthOf(const QString& text, int font)
{
    Measured& measured = m_fonts[static_cast<std::size_t>(font)];
    const auto known = measured.widths.constFind(text);
    if (known != measured.widths.constEnd()) return *known;
    if (measured.widths.size() >= KeptWidths) measured.widths.clear();
    return *measured.widths.insert(text, measured.metrics.horizontalAdvance(text));
}

/// The lines of a text: those it has, and more where one is too wide. Words are broken only when they alone are.
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
