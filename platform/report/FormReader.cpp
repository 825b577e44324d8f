#include "platform/report/FormReader.h"

#include "platform/report/BandReader.h"
#include "platform/system/FileFault.h"
#include "platform/system/Path.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace report {

namespace {

constexpr double UsualMargin = 15; // mm
constexpr double UsualSize = 9;    // pt

class FormReader {
public:
    explicit FormReader(const QString& file) : m_names(m_form) { m_form.file = file; }

    Form read(QXmlStreamReader& xml)
    {
        xml.setNamespaceProcessing(false);
        xml.readNextStartElement();
        Element root(xml, m_form.file);
        if (root.name() != u"report")
            root.place().refuse(u"Die Datei ist kein Berichtsformular, sie beginnt nicht mit <report>."_s);
        readReport(root);
        root.finish();
        if (m_form.data.table.isEmpty()) root.place().refuse(u"Das Element <data> fehlt."_s);
        return m_form;
    }

private:
    void readReport(Element& element)
    {
        m_form.title = element.text(u"title"_s, QFileInfo(m_form.file).completeBaseName());
        m_form.paper = element.word<QPageSize::PageSizeId>(
            u"paper"_s, {{u"A3"_s, QPageSize::A3}, {u"A4"_s, QPageSize::A4}, {u"A5"_s, QPageSize::A5}},
            QPageSize::A4);
        m_form.orientation = element.word<QPageLayout::Orientation>(
            u"orientation"_s,
            {{u"portrait"_s, QPageLayout::Portrait}, {u"landscape"_s, QPageLayout::Landscape}},
            QPageLayout::Portrait);
        m_form.margins = {element.length(u"left"_s, UsualMargin), element.length(u"top"_s, UsualMargin),
                          element.length(u"right"_s, UsualMargin), element.length(u"bottom"_s, UsualMargin)};
        m_form.family = element.text(u"font"_s, u"DejaVu Sans"_s);
        const double width = m_form.paperSize().width() - m_form.margins.left() - m_form.margins.right();
        if (width <= 0) element.place().refuse(u"Die Ränder sind breiter als das Blatt."_s);
        readParts(element, BandReader(m_form, width, BandReader::fontSize(element, UsualSize)));
    }

    void readParts(Element& element, const BandReader& bands)
    {
        const auto before = [this](auto part) {
            return [this, part](Element& e) {
                if (m_hasBands) e.place().refuse(u"<"_s + e.name() + u"> steht vor den Bändern."_s);
                (this->*part)(e);
            };
        };
        const auto band = [this, &bands](Bands& into, TotalsAllowed totals) {
            return [this, &bands, &into, totals](Element& e) {
                m_hasBands = true;
                into.push_back(bands.read(e, totals));
            };
        };
        element.children({{u"formula"_s, before(&FormReader::readFormula)},
                          {u"data"_s, before(&FormReader::readData)},
                          {u"lookup"_s, before(&FormReader::readLookup)},
                          {u"report-header"_s, band(m_form.reportHeader, TotalsAllowed::OfTheWhole)},
                          {u"page-header"_s, band(m_form.pageHeader, TotalsAllowed::Yes)},
                          {u"group"_s, [&](Element& e) { readGroup(e, bands); }},
                          {u"detail"_s, band(m_form.detail, TotalsAllowed::Yes)},
                          {u"page-footer"_s, band(m_form.pageFooter, TotalsAllowed::Yes)},
                          {u"report-footer"_s, band(m_form.reportFooter, TotalsAllowed::Yes)}});
    }

    void readFormula(Element& element)
    {
        const QString name = element.text(u"name"_s);
        const QString written = element.content();
        Operand value =
            written.isEmpty() ? Operand(jet::Value(QString())) : readOperand(written, element.place());
        if (std::holds_alternative<Reference>(value))
            element.place().refuse(u"Die Vorgabe einer Formel ist ein Text in Hochkommas oder eine Zahl."_s);
        m_form.formulas.push_back({name, std::move(value)});
    }

    void readData(Element& element)
    {
        Data& data = m_form.data;
        if (!data.table.isEmpty()) element.place().refuse(u"Es kann nur ein Element <data> geben."_s);
        data.table = element.text(u"table"_s);
        data.show = m_names.condition(element.text(u"show"_s, {}), element.place(), TotalsAllowed::No);
        element.children({{u"summarise"_s, [&](Element& e) { data.summarise.push_back(key(e)); }},
                          {u"column"_s, [&](Element& e) { data.computed.push_back(computed(e)); }},
                          {u"sort"_s, [&](Element& e) { data.sort.push_back(key(e)); }}});
    }

    static ComputedColumn computed(Element& element)
    {
        ComputedColumn column{element.text(u"name"_s), element.text(u"value"_s), element.place()};
        element.end();
        return column;
    }

    Key key(Element& element) const
    {
        Key key{element.text(u"column"_s), false, {}, element.place()};
        if (element.name() == u"sort")
            key.descending =
                element.word<bool>(u"direction"_s, {{u"ascending"_s, false}, {u"descending"_s, true}}, false);
        else
            key.show = m_names.condition(element.text(u"show"_s, {}), element.place(), TotalsAllowed::No);
        element.end();
        return key;
    }

    void readLookup(Element& element)
    {
        Lookup lookup{element.text(u"table"_s), element.text(u"column"_s, {}), std::nullopt};
        const QString equals = element.text(u"equals"_s, {});
        if (lookup.column.isEmpty() != equals.isEmpty())
            element.place().refuse(u"Die Angaben 'column' und 'equals' gehören zusammen."_s);
        if (!equals.isEmpty()) {
            lookup.equals = readOperand(equals, element.place());
            const auto* const reference = std::get_if<Reference>(&*lookup.equals);
            if (reference &&
                (reference->kind != Reference::Kind::Column || !m_names.isLookup(reference->table)))
                element.place().refuse(u"'equals' nennt eine Spalte eines <lookup>, das darüber steht."_s);
        }
        element.end();
        m_form.lookups.push_back(std::move(lookup));
    }

    void readGroup(Element& element, const BandReader& bands)
    {
        m_hasBands = true;
        Group group{
            readOperand(element.text(u"by"_s), element.place()), element.truth(u"new-page"_s), {}, {}};
        m_names.check(group.by, TotalsAllowed::No);
        const auto* const by = std::get_if<Reference>(&group.by);
        const bool isKey = by && (by->kind == Reference::Kind::Formula ||
                                  (by->kind == Reference::Kind::Column && !m_names.isLookup(by->table)));
        if (!isKey) element.place().refuse(u"Gruppiert wird nach {TABELLE.Spalte} oder {@Formel}."_s);
        element.children(
            {{u"header"_s,
              [&](Element& e) { group.header.push_back(bands.read(e, TotalsAllowed::OfTheWhole)); }},
             {u"footer"_s, [&](Element& e) { group.footer.push_back(bands.read(e, TotalsAllowed::Yes)); }}});
        m_form.groups.push_back(std::move(group));
    }

    Form m_form;
    FormNames m_names;
    bool m_hasBands = false;
};

/// Editors of old save umlauts in another encoding; the XML reader would tell of it without a line.
void refuseOtherEncodings(const QByteArray& bytes, const QString& file)
{
    int number = 0;
    for (const QByteArray& line : bytes.split('\n')) {
        ++number;
        QStringDecoder decoder(QStringDecoder::Utf8);
        const QString decoded = decoder(line);
        if (decoder.hasError())
            formPlace(file, number)
                .refuse(u"Die Datei ist nicht in UTF-8 gespeichert: "_s + decoded.trimmed());
    }
}

} // namespace

Form readForm(const QString& file)
{
    QFile source(sys::localPath(file));
    if (!QFileInfo(source).isFile())
        throw sys::FileError(sys::FileErrorNumber::FileNotFound,
                             u"Das Berichtsformular '"_s + source.fileName() + u"' gibt es nicht."_s);
    if (!source.open(QIODevice::ReadOnly)) throw sys::fileFault(errno, source.fileName());
    const QByteArray bytes = source.readAll();
    refuseOtherEncodings(bytes, source.fileName());
    QXmlStreamReader xml(bytes);
    return FormReader(source.fileName()).read(xml);
}

} // namespace report
