// What forms make of rows. A file in papers/ holds blocks with a blank line between; form and rows stay for those below:
//
//     + 14 'Weizen', 'H1', 4.5    fourteen rows of the table J, in place of those before; Nr counts from 1
//     ! UPDATE J SET T = 'a\nb'    a statement on the data file; \r and \n are line breaks
//     form Lagerbestand.rpt       a form that comes with the program; it must keep to the schema, its texts apart
//     formula Kopf = 'a'          also "sort", "select" and "file 1": what the program sets, for this block
//     <data table="J"/> ...       the form
//     = Kopf a | 14 x Weizen      the paper's lines: what stands on one base line, page after page with "---" between, or
//                                 a refusal, of which "..." leaves out the end
//     @ 10,10 60x9 | 10,14 A 10b  what is drawn, with its place in millimetres; of texts size, b and i; colours but black

#include "platform/jet/Errors.h"
#include "platform/system/CaughtError.h"
#include "platform/system/Clock.h"
#include "tests/platform/report/Desk.h"
#include "tests/support/Print.h"

#include <QFile>
#include <QFontMetricsF>
#include <QProcess>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

QString content(const QString& name)
{
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return QString::fromUtf8(file.readAll());
}

QString firstForm(const QString& text)
{
    const QString end = u"</report>"_s;
    const qsizetype begin = text.indexOf(u"<?xml");
    return text.mid(begin, text.indexOf(end) + end.size() - begin);
}

QStringList textsOf(const report::Document& document, const report::Page& page)
{
    QStringList texts;
    double last = -1;
    for (const report::TextLine& line : page.lines) {
        const double base = line.top + document.fonts[std::size_t(line.font)].ascent;
        if (std::abs(base - last) < 0.5 * report::DotsPerMm)
            texts.last() = (texts.last() + u' ' + line.text).simplified();
        else
            texts.append(line.text.simplified());
        last = base;
    }
    return texts;
}

QStringList placesOf(const report::Document& document, const report::Page& page)
{
    QStringList places;
    const auto mm = [](double dots) { return QString::number(std::round(dots / report::DotsPerMm * 10) / 10); };
    const auto colour = [](QRgb color) { return color == 0xFF000000 ? QString() : u' ' + QColor(color).name(); };
    for (const auto& [rect, color] : page.fills)
        places.append(u"%1,%2 %3x%4"_s.arg(mm(rect.x()), mm(rect.y()), mm(rect.width()), mm(rect.height())) +
                      colour(color));
    for (const report::TextLine& line : page.lines) {
        const auto& [font, color, ascent, height] = document.fonts[std::size_t(line.font)];
        const QString size = QString::number(qRound(font.pixelSize() * 72 / report::DotsPerInch));
        const QString look = size + (font.bold() ? u"b"_s : QString()) + (font.italic() ? u"i"_s : QString());
        places.append(u"%1,%2 %3 %4"_s.arg(mm(line.x), mm(line.top), line.text, look) + colour(color));
    }
    return places;
}

void expectApart(const report::Document& document)
{
    for (const report::Page& page : document.pages)
        for (const report::TextLine& line : page.lines) {
            const QFontMetricsF metrics(document.fonts[std::size_t(line.font)].font);
            const double end = line.x + metrics.horizontalAdvance(line.text) + 0.5 * report::DotsPerMm;
            for (const report::TextLine& other : page.lines) {
                const bool beside = other.x > line.x && std::abs(other.top - line.top) < report::DotsPerMm;
                EXPECT_TRUE(!beside || end < other.x) << (line.text + u" | "_s + other.text).toStdString();
            }
        }
}

void expectSchema(const QString& form)
{
    if (QStandardPaths::findExecutable(u"xmllint"_s).isEmpty()) return; // package libxml2-utils
    const QString schema = QStringLiteral(SHIPPED_FORMS) + u"/report.xsd"_s;
    EXPECT_EQ(QProcess::execute(u"xmllint"_s, {u"--noout"_s, u"--schema"_s, schema, form}), 0) << form.toStdString();
}

/// Of equal texts that follow each other one, with their number.
QString joined(const QStringList& texts)
{
    QStringList joined;
    for (qsizetype i = 0, next = 0; i < texts.size(); i = next) {
        while (next < texts.size() && texts[next] == texts[i])
            ++next;
        joined.append(next - i > 1 ? QString::number(next - i) + u" x "_s + texts[i] : texts[i]);
    }
    return joined.join(u" | "_s);
}

QString paper(const report::Job& job, bool withPlaces, bool shipped)
{
    try {
        const report::Document document = report::setPages(job, goOn).value();
        if (shipped) expectApart(document);
        QStringList all;
        for (const report::Page& page : document.pages)
            all += QStringList(u"---"_s) + (withPlaces ? placesOf(document, page) : textsOf(document, page));
        return joined(all.mid(1));
    } catch (const jet::Error& error) {
        return QString(error.text()).replace(u"Das Berichtsformular '"_s + job.reportFile + u'\'', u"FORM"_s);
    }
}

} // namespace

class Papers : public testing::TestWithParam<const char*> {
protected:
    void check(const QString& block)
    {
        SCOPED_TRACE(block.toStdString());
        report::Job job;
        QString form, expected;
        int rows = 0;
        for (const QString& line : block.split(u'\n')) {
            const QString word = line.section(u' ', 0, 0);
            const QString rest = line.section(u' ', 1);
            if (word == u"+")
                add(rest, rows);
            else if (word == u"!")
                desk.execute({QString(rest).replace(u"\\r"_s, u"\r"_s).replace(u"\\n"_s, u"\n"_s)});
            else if (word == u"form")
                form = firstForm(content(QStringLiteral(SHIPPED_FORMS) + u'/' + rest));
            else if (word == u"formula")
                job.formulas[int(job.formulas.size())] = rest;
            else if (word == u"sort")
                job.sortFields[0] = rest;
            else if (word == u"select")
                job.selection = rest;
            else if (word == u"file")
                job.dataFiles[rest.left(1).toInt()] = rest.mid(2);
            else if (word == u"=" || word == u"@")
                expected += (expected.isEmpty() ? QString() : u" | "_s) + rest;
            else if (word != u"#")
                form += line + u'\n';
        }
        if (!form.isEmpty()) {
            lastForm = desk.job(form.toUtf8());
            shipped = block.contains(u"\nform "_s);
            if (shipped) expectSchema(lastForm.reportFile);
        }
        job.reportFile = lastForm.reportFile;
        job.dataFiles.insert(0, lastForm.dataFiles[0]);
        QString actual = paper(job, block.contains(u"\n@ "_s), shipped);
        if (expected.endsWith(u"...")) actual = actual.left(expected.size() - 3) + u"..."_s;
        EXPECT_EQ(actual, expected);
    }

    void add(const QString& values, int& rows) const
    {
        if (rows == 0) desk.execute({u"DELETE FROM J"_s});
        for (int left = values.section(u' ', 0, 0).toInt(); left > 0; --left)
            desk.execute({u"INSERT INTO J (Nr, Artikel, Ort, Menge) VALUES (%1, %2)"_s.arg(++rows).arg(
                values.section(u' ', 1))});
    }

    Desk desk;
    report::Job lastForm;
    bool shipped = false;
};

TEST_P(Papers, SayWhatTheyShould)
{
    sys::stelleUhr(QDate(2024, 12, 31));
    for (const QString& block : content(QStringLiteral(PAPERS) + u'/' + QString::fromLatin1(GetParam()) + u".test"_s)
                                    .trimmed()
                                    .split(u"\n\n"_s))
        check(block);
    sys::stelleUhr({});
}

INSTANTIATE_TEST_SUITE_P(Report, Papers,
                         testing::Values("texts", "rows", "formulas", "pages", "places", "shipped", "refusals"),
                         [](const auto& file) { return file.param; });
