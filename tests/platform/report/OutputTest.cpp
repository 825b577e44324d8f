#include "platform/report/Output.h"
#include "platform/report/PrintControl.h"
#include "platform/report/ReportZurucksetzen.h"
#include "platform/system/CaughtError.h"
#include "tests/platform/report/Desk.h"
#include "tests/platform/report/Pdf.h"
#include "tests/support/Child.h"
#include "tests/support/Print.h"

#include <zablager/DatabaseError.h>
#include <zablager/FileError.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>

#include <csignal>
#include <functional>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

/// Four pages: "Seite 1" in red over a grey field, in a font of its own.
report::Job fourPages(const Desk& desk)
{
    desk.fill(4);
    return desk.job(R"(<data table="J"/><detail height="120">
        <box x="0" y="0" width="60" height="30" border="0" fill="#c0c0c0"/>
        <text x="10" y="10" width="100" size="30" color="#ff0000">Seite {page}</text></detail>)");
}

QString refusal(const std::function<void()>& output)
{
    try {
        output();
    } catch (const std::exception&) {
        return sys::caughtError().text;
    }
    return {};
}

/// What an image of this many pixels a millimetre shows in a colour: "x,y wxh" in millimetres.
QString painted(const QImage& image, int scale, QRgb color)
{
    QRect found;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) == color) found |= QRect(x, y, 1, 1);
    const auto mm = [scale](int pixels) { return qRound(double(pixels) / scale); };
    return u"%1,%2 %3x%4"_s.arg(mm(found.x())).arg(mm(found.y())).arg(mm(found.width())).arg(mm(found.height()));
}

} // namespace

TEST(Output, IsAPdfThatAnotherProgramReads)
{
    NEEDS_PDFTOTEXT;
    const Desk desk;
    const report::Document document = report::setPages(fourPages(desk), goOn).value();
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(desk.path(u"drucker.pdf"_s));
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(2, 3);
    EXPECT_TRUE(report::print(document, printer, goOn));
    EXPECT_EQ(readPdf(printer.outputFileName()),
              (std::vector<QStringList>{QStringList(u"Seite 2"_s), QStringList(u"Seite 3"_s)}));
    QProcess::execute(u"pdftoppm"_s, {u"-r"_s, u"254"_s, u"-singlefile"_s, u"-png"_s, printer.outputFileName(),
                                      desk.path(u"seite"_s)});
    const QImage image(desk.path(u"seite.png"_s));
    EXPECT_EQ(painted(image, 10, qRgb(0xC0, 0xC0, 0xC0)), u"10,10 60x30"_s);
    EXPECT_EQ(painted(image, 10, qRgb(0xFF, 0, 0)), u"21,22 35x8"_s);
}

TEST(Output, LeavesNothingHalfWritten)
{
    const Desk desk;
    const report::Job job = fourPages(desk);
    EXPECT_EQ(report::setPages(job, [](qsizetype, qsizetype) { return false; }), std::nullopt);
    const report::Document document = report::setPages(job, goOn).value();
    const QString former = desk.write(u"alt.pdf"_s, "former");
    const QStringList before = QDir(desk.path({})).entryList(QDir::Files);

    const auto secondPage = [](qsizetype done, qsizetype) { return done < 2; };
    EXPECT_FALSE(report::writePdf(document, former, secondPage));
    EXPECT_FALSE(report::writePdf(document, desk.path(u"neu.pdf"_s), secondPage));
    EXPECT_EQ(refusal([&] { report::writePdf(document, desk.path(u"weg/neu.pdf"_s), goOn); }),
              u"Pfad nicht gefunden: "_s + desk.path(u"weg/neu.pdf"_s));
    EXPECT_EQ(refusal([&] { report::writePdf(document, desk.path({}), goOn); }),
              u"Fehler beim Zugriff auf Pfad/Datei: "_s + desk.path({}));
    const int full = exitCode(startChild([&] {
        std::signal(SIGXFSZ, SIG_IGN); // the write fails instead of ending the process
        const rlimit limit{2000, 2000};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 255;
        return refusal([&] { report::writePdf(document, former, goOn); }).startsWith(u"Datenträger voll") ? 0 : 1;
    }));
    EXPECT_EQ(full, 0);

    QFile still(former);
    EXPECT_TRUE(still.open(QIODevice::ReadOnly));
    EXPECT_EQ(still.readAll(), "former");
    EXPECT_EQ(QDir(desk.path({})).entryList(QDir::Files), before);
}

TEST(Output, OfTheControlFollowsItsProperties)
{
    const Desk desk;
    report::PrintControl control(nullptr);
    control.setReportFileName(fourPages(desk).reportFile);
    control.setDataFiles(0, desk.path(u"daten.mdb"_s));
    control.setFormulas(100, u"kaputt"_s);
    EXPECT_THROW(control.PrintReport(), jet::Error);
    control.setFormulas(100, {});
    control.setProperty("SelectionFormula", u"{J.Nr} = 2"_s);
    control.setPrintFileName(desk.path(u"ZIEL.pdf"_s));
    desk.write(u"ziel.pdf"_s, {});
    control.setProperty("Destination", 2);
    control.PrintReport();
    if (canReadPdf()) {
        EXPECT_EQ(readPdf(desk.path(u"ziel.pdf"_s)).size(), 1u);
    }

    control.setDestination(report::PrintControl::ToPrinter);
    control.setPrinterName(u"Tinte"_s);
    EXPECT_EQ(refusal([&] { control.PrintReport(); }), u"Der Drucker 'Tinte' ist nicht eingerichtet."_s);
    control.setFormulas(100, u"A = 'a'"_s);
    control.setSortFields(0, u"+{J.Nr}"_s);
    report::ReportZurucksetzen(control);
    for (const QString& rest : {control.ReportFileName(), control.SelectionFormula(), control.PrinterName(),
                                control.Formulas(100), control.DataFiles(0), control.SortFields(0)})
        EXPECT_EQ(rest, QString());
    EXPECT_EQ(control.destination(), report::PrintControl::ToPrinter) << "where it goes to stays";
    if (!QPrinterInfo::availablePrinterNames().isEmpty()) return;
    control.setReportFileName(fourPages(desk).reportFile);
    control.setDataFiles(0, desk.path(u"daten.mdb"_s));
    EXPECT_EQ(refusal([&] { control.PrintReport(); }), u"Es ist kein Drucker eingerichtet."_s);
}
