#include "platform/report/Paginator.h"
#include "tests/platform/report/Desk.h"
#include "tests/support/Print.h"

#include <QFile>
#include <QFontMetricsF>
#include <QProcess>
#include <QStandardPaths>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

bool goOn(qsizetype, qsizetype)
{
    return true;
}

/// An evaluation file as the main screen builds it, but for columns that no form shows.
void fill(const Desk& desk)
{
    QStringList statements = {
        u"CREATE TABLE JOURNAL (Abgang Double, Zugang Double, ID Counter, Datum Date, Artikel Text(50), "
        "Artikelart Text(25), LagerortKurzKu Text(15), Menge Double, Preis Double, Einheit Text(15), Buchungsart Text(20), "
        "Kommentar Text(255), Uberstallt_alt Text(15), Untergruppe Text(50))"_s,
        u"ALTER TABLE Journal ADD COLUMN Gruppe Text(100)"_s, u"ALTER TABLE Journal ADD COLUMN Giftigkeit Text(255)"_s};
    const char* const rows[] = {
        "0, 100, #1/1/2024#, 'Weizen', 'Ernte', 'H1', 100, 0, 'dt', 'Anfangsbestand', NULL, NULL, NULL",
        "0, 1234.5, #8/2/2024#, 'Weizen', 'Ernte', 'H1', 1234.5, 0, 'dt', 'Ernte', NULL, NULL, NULL",
        "300, 0, #9/1/2024#, 'Weizen', 'Ernte', 'H2', -300, 21.5, 'dt', 'Verkauf', NULL, NULL, 'bar'",
        "0, 20, #3/5/2024#, 'Quendolar', 'Pflanzenschutz', 'PSM', 20, 12, 'l', 'Zukauf', 'Herbizid', 'reizend', NULL",
        "20, 0, #4/5/2024#, 'Quendolar', 'Pflanzenschutz', 'PSM', -20, 12, 'l', 'Schwund', 'Herbizid', 'reizend', NULL",
        "0, 0, #4/6/2024#, NULL, NULL, 'H1', NULL, NULL, NULL, 'Korrektur', NULL, NULL, NULL"};
    for (const char* const row : rows)
        statements.append(u"INSERT INTO JOURNAL (Abgang, Zugang, Datum, Artikel, Artikelart, LagerortKurzKu, "
                          "Menge, Preis, Einheit, Buchungsart, Gruppe, Giftigkeit, Kommentar) VALUES ("_s +
                          QString::fromUtf8(row) + u')');
    desk.execute(statements);
}

report::Job job(const Desk& desk, const QString& form, const QMap<int, QString>& formulas, const QString& field)
{
    report::Job job = desk.job(QStringLiteral(SHIPPED_FORMS) + u'/' + form);
    job.formulas = {{0, u"Betriebsnummer = '4711'"_s},        {1, u"Betriebsname = 'Demohof'"_s},
                    {2, u"Betriebsadresse = 'Dorf 1'"_s},     {4, u"Stichdatum = 'Von 01.01.2024 bis 31.12.2024'"_s},
                    {5, u"Eingrenzung = 'Alle Lagerorte'"_s}, {7, u"Uberschrift2 = 'Fortlaufend'"_s}};
    job.formulas.insert(formulas);
    job.sortFields[0] = u"+{JOURNAL."_s + field + u'}';
    return job;
}

/// The first form that docs/report-forms.md shows.
QByteArray exampleOfTheDocument()
{
    QFile document(QStringLiteral(SHIPPED_FORMS) + u"/../../docs/report-forms.md"_s);
    EXPECT_TRUE(document.open(QIODevice::ReadOnly));
    const QByteArray text = document.readAll();
    const qsizetype begin = text.indexOf("<?xml");
    return text.mid(begin, text.indexOf("</report>") - begin) + "</report>\n";
}

} // namespace

TEST(ShippedForms, KeepToTheSchema)
{
    if (QStandardPaths::findExecutable(u"xmllint"_s).isEmpty())
        GTEST_SKIP() << "xmllint is not installed (package libxml2-utils)";
    const Desk desk;
    const QString documented = desk.write(u"beispiel.rpt"_s, exampleOfTheDocument());
    for (const QString& form : {u"Lagerjournal.rpt"_s, u"Lagerbestand.rpt"_s, u"Lieferscheine/LieferscheinA5.rpt"_s,
                                u"Lieferscheine/Standardlieferschein.rpt"_s, documented}) {
        QProcess check;
        check.setWorkingDirectory(QStringLiteral(SHIPPED_FORMS));
        check.start(u"xmllint"_s, {u"--noout"_s, u"--schema"_s, u"report.xsd"_s, form});
        ASSERT_TRUE(check.waitForFinished());
        EXPECT_EQ(check.exitCode(), 0) << check.readAllStandardError().toStdString();
    }
}

TEST(ShippedForms, AndTheExampleOfTheDocumentPrint)
{
    NEEDS_PDFTOTEXT;
    const Desk desk;
    fill(desk);
    report::Job example = desk.job(desk.write(u"beispiel.rpt"_s, exampleOfTheDocument()));
    example.selection = u"{JOURNAL.Artikel} = 'weizen'"_s;
    EXPECT_EQ(desk.printedLines(example),
              (QStringList{u"ohne Namen"_s, u"Weizen"_s, u"01.01.2024 100,00"_s, u"02.08.2024 1.234,50"_s,
                           u"01.09.2024 -300,00 Hinweis: bar"_s, u"1.034,50"_s, u"Seite 1 von 1"_s}));
}

TEST(ShippedForms, PrintTheStockList)
{
    NEEDS_PDFTOTEXT;
    const Desk desk;
    fill(desk);
    const QString quendolar = u"Quendolar Pflanzenschutz PSM 20,00 20,00 0,00 l"_s;
    const QString poison = u"Herbizid Giftigkeit: reizend"_s;
    const QString unnamed = u"H1 0,00"_s;
    const QString h1 = u"Weizen Ernte H1 1.334,50 1.334,50 dt"_s;
    const QString h2 = u"Weizen Ernte H2 300,00 -300,00 dt"_s;
    const QMap<int, QString> split = {{8, u"MitGruppierung = 'N'"_s}, {9, u"Uberschrift2 = 'Aufgeteilt'"_s}};
    QMap<int, QString> inSum = {{3, u"MitSumme = 'J'"_s},
                                {8, u"MitGruppierung = 'J'"_s},
                                {9, u"Uberschrift2 = 'Alle Lagerorte in Summe'"_s},
                                {10, u"NullAusblenden = 'J'"_s}};
    const struct {
        const char* name;
        QMap<int, QString> formulas;
        QString field;
        QStringList lines; // from the table's head to the page's foot
    } cases[] = {
        {"by article", split, u"Artikel"_s, {unnamed, quendolar, poison, h1, h2, u"4 Bestände"_s}},
        {"by stock", split, u"Bestand"_s, {h2, unnamed, quendolar, poison, h1, u"4 Bestände"_s}},
        {"unsorted on the screen", split, u"Datum"_s, {unnamed, quendolar, poison, h1, h2, u"4 Bestände"_s}},
        {"in sum, without empty stocks",
         inSum,
         u"LagerortKurzKu"_s,
         {u"Weizen Ernte 1.334,50 300,00 1.034,50 dt"_s, u"1 Artikel"_s}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const QStringList lines = desk.printedLines(job(desk, u"Lagerbestand.rpt"_s, c.formulas, c.field));
        EXPECT_EQ(lines[3], c.formulas[9].section(u'\'', 1, 1)) << "the later heading wins";
        EXPECT_EQ(lines.mid(6, lines.size() - 7), c.lines);
    }
    for (const char* const quantity : {"0.3", "-0.1", "-0.2"}) // used up, whatever adding leaves
        desk.execute({u"INSERT INTO JOURNAL (Artikel, Abgang, Zugang, Menge) VALUES ('Salz', 0, 0, "_s +
                      QString::fromLatin1(quantity) + u')'});
    const auto document = report::setPages(job(desk, u"Lagerbestand.rpt"_s, split, u"Artikel"_s), goOn);
    QStringList red;
    for (const report::TextLine& line : document->pages[0].lines)
        if (qRed(document->fonts[std::size_t(line.font)].color) > 0x80) red.append(line.text);
    EXPECT_EQ(red, QStringList(u"-300,00"_s));
}

TEST(ShippedForms, BreakNoWordAndLetColumnsKeepApart)
{
    NEEDS_PDFTOTEXT;
    const Desk desk;
    fill(desk);
    desk.execute(QStringList(
        80, u"INSERT INTO JOURNAL (Abgang, Zugang, Datum, Artikel, Artikelart, LagerortKurzKu, Menge, Preis, Einheit, "
            "Buchungsart, Uberstallt_alt, Kommentar) VALUES (1234567.25, 1234567.25, #10/10/2024#, "
            "'Zwischenfruchtmischung 7', 'Zwischenfruchtsaatgut', 'Maschinenhalle', -1234567.25, 12345.5, 'Packungen', "
            "'Eigenverbrauch', 'Lagerhaus Mitte', 'Lieferscheinnummer 4711')"_s));
    for (const QString& form : {u"Lagerjournal.rpt"_s, u"Lagerbestand.rpt"_s}) {
        SCOPED_TRACE(form.toStdString());
        const auto printed = job(desk, form, {{8, u"MitGruppierung = 'N'"_s}}, u"Datum"_s);
        const auto document = report::setPages(printed, goOn);
        for (const report::Page& page : document->pages)
            for (const report::TextLine& line : page.lines) {
                const QFontMetricsF metrics(document->fonts[std::size_t(line.font)].font);
                const double right = line.x + metrics.horizontalAdvance(line.text);
                for (const report::TextLine& other : page.lines) {
                    if (other.x <= line.x || std::abs(other.top - line.top) >= report::DotsPerMm) continue;
                    EXPECT_LT(right + 0.5 * report::DotsPerMm, other.x)
                        << line.text.toStdString() << " and " << other.text.toStdString();
                }
            }
        const QStringList lines = desk.printedLines(printed);
        for (const QString& word : {u"Zwischenfruchtsaatgut"_s, u"Maschinenhalle"_s, u"Packungen"_s})
            EXPECT_FALSE(lines.filter(word).isEmpty()) << word.toStdString();
        EXPECT_EQ(lines.filter(u" von 01.01.2024 bis 31.12.2024 Demohof, Betrieb 4711"_s).size(),
                  qsizetype(document->pages.size()) - 1)
            << "further pages repeat the heading";
    }
}
