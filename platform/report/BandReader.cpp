#include "platform/report/BandReader.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace report {

namespace {

constexpr double UsualRule = 0.2;  // mm
constexpr double Slack = 0.05;     // mm that a field may stand out for having been rounded
constexpr double SmallestSize = 1; // pt
constexpr double LargestSize = 200;

QString format(Element& element)
{
    QString format = element.text(u"format"_s, {});
    const auto hasOnly = [&format](QStringView allowed) {
        return std::all_of(format.begin(), format.end(), [allowed](QChar c) { return allowed.contains(c); });
    };
    if (!hasOnly(u"#0,.") && !hasOnly(u"dmy. -/"))
        element.place().refuse(u"Das Format \""_s + format +
                               u"\" ist unbekannt. Möglich sind Formate wie ##,##0.00 und dd.mm.yyyy."_s);
    return format;
}

} // namespace

Band BandReader::read(Element& element, TotalsAllowed totals) const
{
    Band band;
    band.height = element.length(u"height"_s, 0);
    band.show = show(element, totals);
    if (element.name() == u"header") band.repeat = element.truth(u"repeat"_s);
    element.children({{u"text"_s, [&](Element& e) { band.texts.push_back(text(e, totals)); }},
                      {u"line"_s, [&](Element& e) { band.boxes.push_back(line(e, totals)); }},
                      {u"box"_s, [&](Element& e) { band.boxes.push_back(box(e, totals)); }}});
    return band;
}

Text BandReader::text(Element& element, TotalsAllowed totals) const
{
    Text text;
    text.x = element.length(u"x"_s);
    text.y = element.length(u"y"_s, 0);
    text.width = element.length(u"width"_s);
    text.height = element.length(u"height"_s, 0);
    text.font.size = fontSize(element, m_size);
    text.font.bold = element.truth(u"bold"_s);
    text.font.italic = element.truth(u"italic"_s);
    text.font.color = element.color(u"color"_s, text.font.color);
    text.align = element.word<Qt::AlignmentFlag>(
        u"align"_s,
        {{u"left"_s, Qt::AlignLeft}, {u"right"_s, Qt::AlignRight}, {u"center"_s, Qt::AlignHCenter}},
        Qt::AlignLeft);
    text.format = format(element);
    text.show = show(element, totals);
    checkWidth(element, text.x + text.width);
    text.text = readTemplate(element.content(), element.place());
    m_names.check(text.text, totals);
    return text;
}

Box BandReader::line(Element& element, TotalsAllowed totals) const
{
    Box line;
    line.x = element.length(u"x"_s);
    line.y = element.length(u"y"_s, 0);
    const double thickness = element.length(u"thickness"_s, UsualRule);
    if (element.has(u"width"_s) == element.has(u"height"_s))
        element.place().refuse(u"Eine Linie ist entweder waagrecht (width) oder senkrecht (height)."_s);
    line.width = element.length(u"width"_s, thickness);
    line.height = element.length(u"height"_s, thickness);
    line.fill = element.color(u"color"_s, line.color);
    line.show = show(element, totals);
    checkWidth(element, line.x + line.width);
    element.end();
    return line;
}

Box BandReader::box(Element& element, TotalsAllowed totals) const
{
    Box box;
    box.x = element.length(u"x"_s);
    box.y = element.length(u"y"_s, 0);
    box.width = element.length(u"width"_s);
    box.height = element.length(u"height"_s);
    box.border = element.length(u"border"_s, UsualRule);
    box.color = element.color(u"color"_s, box.color);
    const QRgb fill = element.color(u"fill"_s, 0);
    if (element.has(u"fill"_s)) box.fill = fill;
    box.show = show(element, totals);
    checkWidth(element, box.x + box.width);
    element.end();
    return box;
}

double BandReader::fontSize(Element& element, double otherwise)
{
    const double size = element.length(u"size"_s, otherwise);
    if (size < SmallestSize || size > LargestSize)
        element.place().refuse(u"Eine Schrift ist zwischen 1 und 200 Punkt groß."_s);
    return size;
}

Condition BandReader::show(Element& element, TotalsAllowed totals) const
{
    return m_names.condition(element.text(u"show"_s, {}), element.place(), totals);
}

void BandReader::checkWidth(const Element& element, double right) const
{
    if (right <= m_width + Slack) return;
    element.place().refuse(u"<"_s + element.name() + u"> ragt über den rechten Rand: Es endet bei "_s +
                           QString::number(right) + u" mm, bedruckbar sind "_s + QString::number(m_width) +
                           u" mm."_s);
}

} // namespace report
