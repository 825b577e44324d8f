// What forms make of rows. A file in papers/ holds blocks with a blank line between; form and rows stay for
// those below. A line that is indented by four belongs to the one above.
//
//     + 14 'Weizen', 'H1', 4.5    fourteen rows of the table J, in place of those before; Nr counts from 1
//     ! UPDATE J SET T = 'a\nb'    a statement on the data file; \r and \n are line breaks
//     form Lagerbestand.rpt       a form that comes with the program; it must keep to the schema
//     formula Kopf = 'a'          also "sort", "select" and "file 1": what the program sets, for this block
//     <data table="J"/> ...       the form; of one that begins with <detail>, or what stands in one, J is the
//                                 table
//     = Kopf a | 14 x Weizen      the paper's lines: what stands on one base line, page after page with "---"
//                                 between, or
//                                 a refusal, of which "..." leaves out the end
//     @ 10,10 60x9 | 10,14 A 10b  what is drawn, with its place in millimetres; of texts size, b and i;
//                                 colours but black
//     select 1 => Die Auswahl     a block of its own: a line, and the refusal that it leads to

#include "platform/jet/Errors.h"
#include "platform/system/Clock.h"
#include "tests/platform/report/Desk.h"

#include <QFontMetricsF>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

QStringList textsOf(const report::Document& document, const report::Page& page)
{
    QStringList texts;
    double last = -1;
    for (const report::TextLine& line : page.lines) {
        const double base = line.top + document.fonts[std::size_t(line.font)].ascent;
        const bool beside = std::abs(base - last) < 0.5 * report::DotsPerMm;
        const QString before = beside ? texts.takeLast() + u' ' : QString();
        texts.append((before + line.text).simplified());
        last = base;
    }
    return texts;
}

QStringList placesOf(const report::Document& document, const report::Page& page)
{
    QStringList places;
    const auto mm = [](double dots) {
        return QString::number(std::round(dots / report::DotsPerMm * 10) / 10);
    };
    const auto colour = [](QRgb color) {
        return color == 0xFF000000 ? QString() : u' ' + QColor(color).name();
    };
    for (const auto& [rect, color] : page.fills)
        places.append(u"%1,%2 %3x%4"_s.arg(mm(rect.x()), mm(rect.y()), mm(rect.width()), mm(rect.height())) +
                      colour(color));
    for (const report::TextLine& line : page.lines) {
        const auto& [font, color, ascent, height] = document.fonts[std::size_t(line.font)];
        const QString size = QString::number(qRound(font.pixelSize() * 72 / report::DotsPerInch));
        const QString style = (font.bold() ? u"b"_s : QString()) + (font.italic() ? u"i"_s : QString());
        places.append(u"%1,%2 %3 "_s.arg(mm(line.x), mm(line.top), line.text) + size + style + colour(color));
    }
    return places;
}

void expectTextsApart(const report::Document& document, const report::Page& page)
{
    for (const report::TextLine& line : page.lines) {
        const QFontMetricsF metrics(document.fonts[std::size_t(line.font)].font);
        const double end = line.x + metrics.horizontalAdvance(line.text) + 0.5 * report::DotsPerMm;
        for (const report::TextLine& other : page.lines) {
            const bool beside = other.x > line.x && std::abs(other.top - line.top) < report::DotsPerMm;
            EXPECT_TRUE(!beside || end < other.x) << (line.text + u" | "_s + other.text).toStdString();
        }
    }
}

QString paper(const report::Job& job, bool withPlaces)
{
    try {
        const report::Document document = report::setPages(job, goOn).value();
        QStringList all;
        for (const report::Page& page : document.pages) {
            expectTextsApart(document, page);
            all += QStringList(u"---"_s) + (withPlaces ? placesOf(document, page) : textsOf(document, page));
        }
        return all.mid(1).join(u" | "_s);
    } catch (const jet::Error& error) {
        return QString(error.text())
            .replace(u"Das Berichtsformular '"_s + job.reportFile + u'\'', u"FORM"_s)
            .replace(u"FORM ist fehlerhaft, Zeile"_s, u"Zeile"_s);
    }
}

} // namespace

class Papers : public testing::TestWithParam<const char*>, protected Desk {
protected:
    void check(const QString& block)
    {
        SCOPED_TRACE(block.toStdString());
        report::Job job;
        QString form, expected;
        int rows = 0;
        for (const QString& line : QString(block).replace(u"\n    "_s, u" "_s).split(u'\n')) {
            const QString word = line.section(u' ', 0, 0);
            const QString rest = line.section(u' ', 1);
            if (word == u"+")
                add(rest, rows);
            else if (word == u"!")
                execute(QString(rest).replace(u"\\r"_s, u"\r"_s).replace(u"\\n"_s, u"\n"_s));
            else if (word == u"form")
                ship(rest);
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
        if (form.startsWith(u"<text") || form.startsWith(u"<line"))
            form = u"<detail>"_s + form + u"</detail>"_s;
        if (form.startsWith(u"<detail")) form = uR"(<data table="J"/>)"_s + form;
        if (!form.isEmpty()) last = Desk::job(form.toUtf8());
        job.reportFile = last.reportFile;
        job.dataFiles.insert(0, last.dataFiles[0]);
        static const QRegularExpression repeated(u"(\\d+) x ([^|]*[^| ])"_s);
        for (auto some = repeated.match(expected); some.hasMatch(); some = repeated.match(expected))
            expected.replace(some.capturedStart(), some.capturedLength(),
                             QStringList(some.captured(1).toInt(), some.captured(2)).join(u" | "_s));
        QString actual = paper(job, block.contains(u"\n@ "_s));
        if (expected.endsWith(u"...")) actual = actual.left(expected.size() - 3) + u"..."_s;
        EXPECT_EQ(actual, expected);
    }

    void add(const QString& values, int& rows) const
    {
        if (rows == 0) execute(u"DELETE FROM J"_s);
        for (int left = values.section(u' ', 0, 0).toInt(); left > 0; --left)
            execute(u"INSERT INTO J (Nr, Artikel, Ort, Menge) VALUES (%1, %2)"_s.arg(++rows).arg(
                values.section(u' ', 1)));
    }

    void ship(const QString& file) ///< The first form in the file.
    {
        const QString forms = QStringLiteral(SHIPPED_FORMS) + u'/', end = u"</report>"_s;
        const QString text = QString::fromUtf8(read(forms + file));
        const qsizetype begin = text.indexOf(u"<?xml");
        last = Desk::job(text.mid(begin, text.indexOf(end) + end.size() - begin).toUtf8());
        if (QStandardPaths::findExecutable(u"xmllint"_s).isEmpty()) return; // package libxml2-utils
        EXPECT_EQ(QProcess::execute(u"xmllint"_s,
                                    {u"--noout"_s, u"--schema"_s, forms + u"report.xsd"_s, last.reportFile}),
                  0);
    }

    report::Job last;
};

TEST_P(Papers, SayWhatTheyShould)
{
    sys::stelleUhr(QDate(2024, 12, 31));
    QString text =
        QString::fromUtf8(read(QStringLiteral(PAPERS) + u'/' + QString::fromLatin1(GetParam()) + u".test"_s));
    static const QRegularExpression refused(u"^(.*) => (.*)$"_s, QRegularExpression::MultilineOption);
    text.replace(refused, u"\\1\n= \\2\n"_s);
    for (const QString& block : text.trimmed().split(u"\n\n"_s))
        check(block.trimmed());
    sys::stelleUhr({});
}

INSTANTIATE_TEST_SUITE_P(Report, Papers,
                         testing::Values("texts", "rows", "formulas", "pages", "places", "shipped",
                                         "refusals"),
                         [](const auto& file) { return file.param; });
