#include "platform/report/Output.h"
#include "platform/report/PrintControl.h"
#include "platform/report/ReportZurucksetzen.h"
#include "platform/system/CaughtError.h"
#include "tests/platform/report/Desk.h"
#include "tests/support/Child.h"
#include "tests/support/Print.h"

#include <zablager/DatabaseError.h>
#include <zablager/FileError.h>

#include <QDir>
#include <QFile>
#include <QPrinter>
#include <QPrinterInfo>

#include <gtest/gtest.h>

#include <csignal>
#include <functional>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

constexpr char Form[] = R"(<data table="J"/>
    <detail height="120"><text x="0" width="100">Seite {page}</text></detail>
)";

bool goOn(qsizetype, qsizetype)
{
    return true;
}

/// A report of four pages.
QString fourPages(const Desk& desk)
{
    QStringList statements = {u"CREATE TABLE J (Nr Long)"_s};
    for (int i = 0; i < 4; ++i)
        statements.append(u"INSERT INTO J (Nr) VALUES (1)"_s);
    desk.execute(statements);
    return desk.form(Form);
}

QString refusal(const std::function<void()>& output)
{
    try {
        output();
    } catch (const sys::FileError& error) {
        return error.text();
    }
    return {};
}

QByteArray content(const QString& file)
{
    QFile read(file);
    EXPECT_TRUE(read.open(QIODevice::ReadOnly));
    return read.readAll();
}

} // namespace

TEST(Output, LeavesNothingHalfWritten)
{
    const Desk desk;
    const auto document = *report::setPages(desk.job(fourPages(desk)), goOn);
    const QString former = desk.write(u"alt.pdf"_s, "former");
    const QStringList before = QDir(desk.path(QString())).entryList(QDir::Files);

    const auto secondPage = [](qsizetype done, qsizetype) { return done < 2; };
    EXPECT_FALSE(report::writePdf(document, former, secondPage));
    EXPECT_FALSE(report::writePdf(document, desk.path(u"neu.pdf"_s), secondPage));
    EXPECT_EQ(refusal([&] { report::writePdf(document, desk.path(u"weg/neu.pdf"_s), goOn); }),
              u"Pfad nicht gefunden: "_s + desk.path(u"weg/neu.pdf"_s));
    EXPECT_EQ(refusal([&] { report::writePdf(document, desk.path(QString()), goOn); }),
              u"Fehler beim Zugriff auf Pfad/Datei: "_s + desk.path(QString()));
    const int full = exitCode(startChild([&] {
        std::signal(SIGXFSZ, SIG_IGN); // the write fails instead of ending the process
        const rlimit limit{2000, 2000};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 255;
        try {
            report::writePdf(document, former, goOn);
        } catch (const sys::FileError& error) {
            return int(error.number());
        }
        return 0;
    }));
    EXPECT_EQ(full, int(sys::FileErrorNumber::DiskFull));

    EXPECT_EQ(content(former), "former");
    EXPECT_EQ(QDir(desk.path(QString())).entryList(QDir::Files), before);
}

TEST(Output, EndsWhenTheUserWantsIt)
{
    const Desk desk;
    EXPECT_EQ(report::setPages(desk.job(fourPages(desk)), [](qsizetype, qsizetype) { return false; }), std::nullopt);
}

TEST(Output, PrintsThePagesThatAreWanted)
{
    NEEDS_PDFTOTEXT;
    const Desk desk;
    const auto document = *report::setPages(desk.job(fourPages(desk)), goOn);
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(desk.path(u"drucker.pdf"_s));
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(2, 3);
    EXPECT_TRUE(report::print(document, printer, goOn));
    EXPECT_EQ(readPdf(printer.outputFileName()),
              (std::vector<QStringList>{QStringList(u"Seite 2"_s), QStringList(u"Seite 3"_s)}));
}

TEST(Output, OfTheControlFollowsItsProperties)
{
    NEEDS_PDFTOTEXT;
    const Desk desk;
    report::PrintControl control(nullptr);
    control.setReportFileName(fourPages(desk));
    control.setDataFiles(0, desk.path(u"daten.mdb"_s));
    control.setSelectionFormula(u"{J.Nr} = 2"_s);
    control.setFormulas(100, u"kaputt"_s);
    EXPECT_THROW(control.PrintReport(), jet::Error);
    control.setProperty("SelectionFormula", QString());
    control.setFormulas(100, {});
    control.setPrintFileName(desk.path(u"ziel.pdf"_s));
    control.setProperty("Destination", 2);
    control.PrintReport();
    EXPECT_EQ(readPdf(desk.path(u"ziel.pdf"_s)).size(), 4u);

    control.setDestination(report::PrintControl::ToPrinter);
    control.setPrinterName(u"Tinte"_s);
    EXPECT_EQ(refusal([&] { control.PrintReport(); }), u"Der Drucker 'Tinte' ist nicht eingerichtet."_s);
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        control.setPrinterName({});
        EXPECT_EQ(refusal([&] { control.PrintReport(); }), u"Es ist kein Drucker eingerichtet."_s);
    }

    control.setFormulas(100, u"A = 'a'"_s);
    control.setSortFields(0, u"+{J.Nr}"_s);
    control.setPrinterName(u"Tinte"_s);
    report::ReportZurucksetzen(control);
    for (const QString& rest : {control.ReportFileName(), control.SelectionFormula(), control.PrinterName(),
                                control.Formulas(100), control.DataFiles(0), control.SortFields(0)})
        EXPECT_EQ(rest, QString());
}
