#include "platform/report/PageView.h"
#include "platform/report/PrintControl.h"
#include "platform/report/ProgressBox.h"
#include "tests/platform/report/Desk.h"
#include "tests/platform/report/Pdf.h"
#include "tests/support/Bildschirm.h"
#include "tests/support/Print.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int Patience = 5000; // ms

/// The preview of a report of five pages, as a screen opens it.
class Preview : public testing::Test {
protected:
    Preview()
    {
        desk.fill(5);
        const report::Job job = desk.job(R"(<data table="J"/><detail height="120">
            <box x="0" y="0" width="128" height="9" border="0" fill="#00ff00" show="{page} = 5"/>
            <text x="0" width="100">Seite {page}</text></detail>)");
        control.setReportFileName(job.reportFile);
        control.setDataFiles(0, job.dataFiles[0]);
        control.setWindowTitle(u"Auswertung"_s);
        control.setProperty("DocumentName", u"Lieferschein 1/25 Müller"_s);
        screen.show();
        control.PrintReport();
        window = screen.findChild<QWidget*>(u"Druckvorschau"_s);
        pages = window->findChild<report::PageView*>();
        activate();
    }

    void activate() // this platform leaves no window active after a dialog
    {
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    }

    int page() const { return window->findChild<QSpinBox*>(u"Seite"_s)->value(); }
    void press(int key, Qt::KeyboardModifiers with = Qt::NoModifier) { QTest::keyClick(pages, Qt::Key(key), with); }
    /// Where the green field of the last page is on view.
    QRect green() const
    {
        const QImage view = pages->viewport()->grab().toImage();
        QRegion found;
        for (int y = 0; y < view.height(); y += 4)
            for (int x = 0; x < view.width(); x += 4)
                if (view.pixelColor(x, y) == QColor(0, 255, 0)) found += QRect(x, y, 1, 1);
        return found.boundingRect();
    }

    Desk desk;
    QWidget screen;
    report::PrintControl control{&screen};
    QPointer<QWidget> window;
    report::PageView* pages = nullptr;
};

} // namespace

TEST_F(Preview, TurnsPagesAndSizesByKeys)
{
    EXPECT_EQ(window->windowTitle(), u"Auswertung"_s);
    EXPECT_TRUE(pages->hasFocus());
    const struct {
        int key;
        Qt::KeyboardModifier with;
        int page;
    } keys[] = {{Qt::Key_PageDown, Qt::ControlModifier, 2}, {Qt::Key_End, Qt::NoModifier, 5},
                {Qt::Key_PageDown, Qt::ControlModifier, 5}, {Qt::Key_PageUp, Qt::ControlModifier, 4},
                {Qt::Key_Home, Qt::NoModifier, 1},          {Qt::Key_PageUp, Qt::ControlModifier, 1},
                {Qt::Key_Down, Qt::NoModifier, 1},          {Qt::Key_End, Qt::NoModifier, 5}};
    for (const auto& [key, with, expected] : keys) {
        press(key, with);
        EXPECT_EQ(page(), expected) << key;
    }
    EXPECT_GT(green().width(), pages->viewport()->width() / 2) << "the page fills the window's width";

    auto* const zoom = window->findChild<QComboBox*>(u"Groesse"_s);
    const double before = pages->zoom();
    press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(pages->zoom(), before);
    EXPECT_EQ(zoom->currentText(), QString::number(qRound(pages->zoom() * 100)) + u" %"_s);
    EXPECT_EQ(page(), 5) << "another size leaves the page";
    press(Qt::Key_Right);
    EXPECT_GE(pages->horizontalScrollBar()->value(), 20) << "a step that one sees";
    press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(pages->zoom(), before);

    zoom->showPopup(); // "Seitenbreite" again
    QTest::keyClick(zoom->view(), Qt::Key_Return);
    EXPECT_EQ(pages->fit(), report::PageView::Fit::Width);
    QTest::keyClick(zoom, Qt::Key_Up); // to "Ganze Seite"
    EXPECT_EQ(pages->fit(), report::PageView::Fit::Page);
    press(Qt::Key_PageUp);
    EXPECT_EQ(page(), 4) << "turns where a whole page is on view";
    window->resize(window->width(), window->height() / 2);
    QTest::keyClick(zoom, Qt::Key_Down, Qt::NoModifier);
    QTest::keyClick(zoom, Qt::Key_Down, Qt::NoModifier); // 50 %
    EXPECT_DOUBLE_EQ(pages->zoom(), 0.5);
    window->findChild<QSpinBox*>(u"Seite"_s)->setValue(2);
    EXPECT_EQ(pages->currentPage(), 1);
    QStringList turned;
    for (auto* const button : window->findChildren<QToolButton*>()) {
        if (button->toolTip().isEmpty()) continue;
        button->click();
        turned.append(button->toolTip().section(u' ', 0, 0) + u' ' + QString::number(page()));
    }
    EXPECT_EQ(turned.join(u", "_s), u"Erste 1, Vorige 1, Nächste 2, Letzte 5"_s);
}

TEST_F(Preview, NeedsNoFileAnyMoreAndSavesThePdf)
{
    ASSERT_TRUE(QFile::remove(desk.path(u"daten.mdb"_s)));
    const QString target = desk.path(u"Bericht"_s);
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(desk.path({})));
    for (const bool again : {false, true}) {
        imNaechstenFenster([&](QWidget& dialog) {
            auto* const name = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
            EXPECT_EQ(name->text(), u"Lieferschein 1-25 Müller.pdf"_s);
            if (again) {
                EXPECT_EQ(qobject_cast<QFileDialog*>(&dialog)->directory(), QDir(desk.path({})))
                    << "the folder of before";
                dialog.close();
                return;
            }
            name->setText(target);
            QTest::keyClick(name, Qt::Key_Return);
        });
        activate();
        QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);
    }
    qunsetenv("XDG_CONFIG_HOME");
    EXPECT_TRUE(QFile::exists(target + u".pdf"_s));
    if (canReadPdf()) {
        EXPECT_EQ(readPdf(target + u".pdf"_s).size(), 5u);
    }

    activate();
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return window.isNull(); }, Patience));
}

TEST_F(Preview, LongWorkShowsABoxThatEndsIt)
{
    report::ProgressBox box(u"Der Bericht wird zusammengestellt ..."_s, &screen);
    const report::Progress progress = box.progress();
    imNaechstenFenster([](QWidget& dialog) {
        auto* const end = dialog.findChild<QPushButton*>();
        EXPECT_EQ(end->text(), u"Abbrechen"_s);
        QTest::keyClick(end, Qt::Key_Space);
    });
    while (progress(1, 2)) {
    } // nothing gets on
}
