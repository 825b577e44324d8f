#include "platform/report/Output.h"
#include "platform/report/PrintControl.h"
#include "platform/report/ProgressBox.h"
#include "platform/report/ReportZurucksetzen.h"
#include "tests/platform/report/Desk.h"
#include "tests/platform/report/Pdf.h"
#include "tests/support/Bildschirm.h"

#include <QAbstractScrollArea>
#include <QFileDialog>
#include <QLineEdit>
#include <QPointer>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

QRect painted(const QImage& image, QRgb color)
{
    QRect found;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) == color) found |= QRect(x, y, 1, 1);
    return found;
}

/// A report of five pages: "Seite 1" in red over a grey field, on the last page below a green one.
class Output : public testing::Test, protected Desk {
protected:
    Output()
    {
        for (int i = 1; i <= 5; ++i)
            execute(u"INSERT INTO J (Nr) VALUES (%1)"_s.arg(i));
        control.setReportFileName(form.reportFile);
        control.setDataFiles(0, form.dataFiles[0]);
        control.setWindowTitle(u"Auswertung"_s);
        control.setProperty("DocumentName", u"Lieferschein 1/25 Müller"_s);
    }

    void openPreview()
    {
        control.PrintReport();
        window = screen.findChild<QWidget*>(u"Druckvorschau"_s);
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    }

    QString shown(const QString& field, const char* property) const
    {
        return window->findChild<QWidget*>(field)->property(property).toString();
    }

    /// The page, its size, and where the green field begins and how wide it is in tenths of the view.
    QString onView() const
    {
        const QImage view =
            window->findChild<QAbstractScrollArea*>(u"Seiten"_s)->viewport()->grab().toImage();
        const QRect green = painted(view, qRgb(0, 255, 0));
        return u"%1 %2 %3+%4"_s.arg(shown(u"Seite"_s, "value"), shown(u"Groesse"_s, "currentText"))
            .arg(10 * green.x() / view.width())
            .arg(10 * green.width() / view.width());
    }

    const report::Job form = job(R"(<data table="J"/><detail height="120">
        <box x="0" y="0" width="60" height="30" border="0" fill="#c0c0c0"/>
        <box x="0" y="31" width="128" height="9" border="0" fill="#00ff00" show="{page} = 5"/>
        <text x="10" y="10" width="100" size="30" color="#ff0000">Seite {page}</text></detail>)");
    QWidget screen;
    report::PrintControl control{&screen};
    QPointer<QWidget> window; ///< The preview.
};

} // namespace

TEST_F(Output, IsAPdfThatAnotherProgramReads)
{
    NEEDS_PDFTOTEXT;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path(u"drucker.pdf"_s));
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(2, 3);
    EXPECT_TRUE(report::print(report::setPages(form, goOn).value(), printer, goOn));
    EXPECT_EQ(readPdf(printer.outputFileName()),
              (std::vector<QStringList>{QStringList(u"Seite 2"_s), QStringList(u"Seite 3"_s)}));
    QProcess::execute(u"pdftoppm"_s, {u"-r"_s, u"254"_s, u"-singlefile"_s, u"-png"_s,
                                      printer.outputFileName(), path(u"seite"_s)}); // ten pixels a millimetre
    const QImage image(path(u"seite.png"_s));
    EXPECT_EQ(painted(image, qRgb(0xC0, 0xC0, 0xC0)), QRect(100, 100, 600, 300));
    EXPECT_TRUE(QRect(200, 210, 20, 20).contains(painted(image, qRgb(0xFF, 0, 0)).topLeft()));
}

TEST_F(Output, LeavesNothingHalfWritten)
{
    EXPECT_EQ(report::setPages(form, [](qsizetype, qsizetype) { return false; }), std::nullopt);
    const report::Document document = report::setPages(form, goOn).value();
    write(u"alt.pdf"_s, "former");
    const QString before = names();
    const auto to = [&](const QString& name) {
        return [&, name] { report::writePdf(document, path(name), goOn); };
    };
    for (const auto& name : {u"alt.pdf"_s, u"neu.pdf"_s})
        EXPECT_FALSE(
            report::writePdf(document, path(name), [](qsizetype done, qsizetype) { return done < 2; }));
    EXPECT_EQ(refusal(to(u"weg/neu.pdf"_s)), u"76 Pfad nicht gefunden: %/weg/neu.pdf"_s);
    EXPECT_EQ(refusal(to({})), u"75 Fehler beim Zugriff auf Pfad/Datei: %"_s);
    EXPECT_TRUE(refusesFullDisk(6000, u"61 Datenträger voll: %/alt.pdf"_s, to(u"alt.pdf"_s)));
    EXPECT_EQ(read(u"alt.pdf"_s), "former");
    EXPECT_EQ(names(), before);
}

TEST_F(Output, OfTheControlFollowsItsProperties)
{
    control.setFormulas(100, u"kaputt"_s);
    EXPECT_ANY_THROW(control.PrintReport());
    control.setFormulas(100, {});
    control.setProperty("SelectionFormula", u"{J.Nr} = 2"_s);
    control.setPrintFileName(path(u"ZIEL.pdf"_s));
    write(u"ziel.pdf"_s, {});
    control.setProperty("Destination", 2);
    control.PrintReport();
    EXPECT_EQ(canReadPdf() ? readPdf(path(u"ziel.pdf"_s)).size() : 1, 1u);

    control.setDestination(report::PrintControl::ToPrinter);
    control.setPrinterName(u"Tinte"_s);
    EXPECT_EQ(refusal([&] { control.PrintReport(); }), u"53 Der Drucker 'Tinte' ist nicht eingerichtet."_s);
    control.setFormulas(100, u"A = 'a'"_s);
    control.setSortFields(0, u"+{J.Nr}"_s);
    report::ReportZurucksetzen(control);
    EXPECT_EQ(control.ReportFileName() + control.SelectionFormula() + control.PrinterName() +
                  control.Formulas(100) + control.DataFiles(0) + control.SortFields(0),
              QString());
    if (!QPrinterInfo::availablePrinterNames().isEmpty()) return;
    control.setReportFileName(form.reportFile);
    control.setDataFiles(0, form.dataFiles[0]);
    EXPECT_EQ(refusal([&] { control.PrintReport(); }),
              u"53 Es ist kein Drucker eingerichtet."_s); // where it goes stays
}

TEST_F(Output, TurnsPagesAndSizesByKeys)
{
    openPreview();
    EXPECT_EQ(window->windowTitle(), u"Auswertung"_s);
    const std::pair<QStringView, QString> cases[] = {
        {u"{Ctrl+PgDown}", u"2 Seitenbreite 0+0"_s},
        {u"{Ende}", u"5 Seitenbreite 0+8"_s},
        {u"{Ctrl+PgDown}", u"5 Seitenbreite 0+8"_s},
        {u"{Ctrl+PgUp}", u"4 Seitenbreite 0+0"_s},
        {u"{Pos1}{Ctrl+PgUp}{PgDown}{PgDown}{PgDown}",
         u"3 Seitenbreite 0+0"_s},                       // turns only where a whole page is on view
        {u"{Ende}{Alt+G}{Auf}", u"5 Ganze Seite 2+5"_s}, // another size leaves the page
        {u"{Ab}{Ab}", u"5 50 % 3+3"_s},
        {u"{Alt+E}{Eingabe}{Ende}{PgUp}{PgUp}", u"3 50 % 0+0"_s},
        {u"{Ende}{Ctrl++}{Ctrl++}{Ctrl+-}", u"5 63 % 2+4"_s},
        {u"{Alt+G}{Alt+Ab}{Eingabe}", u"5 50 % 3+3"_s}, // chosen as before
        {u"{Ab}{Ab}{Ab}{Alt+E}5{Eingabe}", u"5 150 % 1+8"_s},
        {u"{Right}{Right}", u"5 150 % 0+10"_s}, // steps that one sees
    };
    for (const auto& [keys, expected] : cases) {
        tippe(keys);
        EXPECT_EQ(onView(), expected) << keys.toUtf8().toStdString();
    }
    QStringList turned;
    for (auto* const button : window->findChildren<QToolButton*>()) {
        if (button->toolTip().isEmpty()) continue;
        button->click();
        turned.append(button->toolTip().section(u' ', 0, 0) + u' ' + shown(u"Seite"_s, "value"));
    }
    EXPECT_EQ(turned.join(u", "_s), u"Erste 1, Vorige 1, Nächste 2, Letzte 5"_s);
}

TEST_F(Output, OfThePreviewNeedsNoFileAnyMore)
{
    openPreview();
    ASSERT_TRUE(QFile::remove(form.dataFiles[0]));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(path({})));
    const auto save = [&](const QString& keys) {
        QString offered;
        imNaechstenFenster([&](QWidget& dialog) {
            offered = qobject_cast<QFileDialog*>(&dialog)->directory().path() + u'/' +
                      dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->text();
            tippe(keys);
        });
        tippe(u"{Strg+S}");
        window->activateWindow(); // this platform leaves none active
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
        return offered;
    };
    save(path(u"Bericht"_s) + u"{Eingabe}"_s);
    EXPECT_EQ(save(u"{Esc}"_s), path(u"Lieferschein 1-25 Müller.pdf"_s)) << "the folder of before";
    qunsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(canReadPdf() ? readPdf(path(u"Bericht.pdf"_s)).size() : 5, 5u);
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        testing::internal::CaptureStderr();
        tippe(u"{Strg+P}");
        const std::string told = testing::internal::GetCapturedStderr();
        EXPECT_EQ(told, "Es ist kein Drucker eingerichtet. Der Bericht kann als PDF gespeichert werden.\n");
    }
    tippe(u"{Esc}");
    EXPECT_TRUE(QTest::qWaitFor([this] { return window.isNull(); }));
}

TEST_F(Output, ThatTakesLongShowsABoxThatEndsIt)
{
    report::ProgressBox box(u"Der Bericht wird zusammengestellt ..."_s, &screen);
    const report::Progress progress = box.progress();
    imNaechstenFenster([](QWidget&) { tippe(u"{Leer}"); });
    while (progress(1, 2)) {
    } // nothing gets on
}
