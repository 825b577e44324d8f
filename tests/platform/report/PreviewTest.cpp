#include "platform/report/PageView.h"
#include "platform/report/PrintControl.h"
#include "platform/report/ProgressBox.h"
#include "platform/system/Messages.h"
#include "tests/platform/report/Desk.h"
#include "tests/support/Bildschirm.h"
#include "tests/support/Print.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPointer>
#include <QPrinterInfo>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int Patience = 5000; // ms

/// The preview of a report of five pages, as a screen opens it.
class Preview : public testing::Test {
protected:
    Preview()
    {
        QStringList statements = {u"CREATE TABLE J (Nr Long)"_s};
        for (int i = 0; i < 5; ++i)
            statements.append(u"INSERT INTO J (Nr) VALUES (1)"_s);
        desk.execute(statements);
        control.setReportFileName(desk.form(R"(<data table="J"/>
            <detail height="120"><text x="0" width="100">Seite {page}</text></detail>)"));
        control.setDataFiles(0, desk.path(u"daten.mdb"_s));
        control.setWindowTitle(u"Auswertung"_s);
        control.setProperty("DocumentName", u"Lieferschein 1/25 Müller"_s);
        screen.show();
        control.PrintReport();
        window = screen.findChild<QWidget*>(u"Druckvorschau"_s);
        pages = window->findChild<report::PageView*>();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    }

    int page() const { return window->findChild<QSpinBox*>(u"Seite"_s)->value(); }
    void press(int key, Qt::KeyboardModifiers with = Qt::NoModifier) { QTest::keyClick(pages, Qt::Key(key), with); }

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
    EXPECT_EQ(page(), 1);
    press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(page(), 2);
    press(Qt::Key_End);
    EXPECT_EQ(page(), 5);
    press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(page(), 4);

    auto* const zoom = window->findChild<QComboBox*>(u"Groesse"_s);
    const double before = pages->zoom();
    press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(pages->zoom(), before);
    EXPECT_TRUE(zoom->currentText().endsWith(u" %"));
    EXPECT_EQ(page(), 4) << "another size leaves the page";

    QTest::keyClick(zoom, Qt::Key_Up); // from "Seitenbreite" to "Ganze Seite"
    EXPECT_EQ(pages->fit(), report::PageView::Fit::Page);
    press(Qt::Key_PageUp);
    EXPECT_EQ(page(), 3);
    window->findChild<QSpinBox*>(u"Seite"_s)->setValue(5);
    EXPECT_EQ(pages->currentPage(), 4);
    press(Qt::Key_Home);
    EXPECT_EQ(page(), 1);
}

TEST_F(Preview, NeedsNoFileAnyMoreAndSavesThePdf)
{
    ASSERT_TRUE(QFile::remove(desk.path(u"daten.mdb"_s)));
    const QString target = desk.path(u"Bericht"_s);
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(desk.path({})));
    for (int time : {1, 2}) { // the second one begins where the first one saved
        imNaechstenFenster([&](QWidget& dialog) {
            auto* const name = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
            EXPECT_EQ(name->text(), u"Lieferschein 1-25 Müller.pdf"_s);
            if (time == 2) {
                EXPECT_EQ(qobject_cast<QFileDialog*>(&dialog)->directory(), QDir(desk.path({})));
                dialog.close();
                return;
            }
            name->setText(target);
            QTest::keyClick(name, Qt::Key_Return);
        });
        window->activateWindow(); // this platform leaves no window active after a dialog
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
        QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);
    }
    qunsetenv("XDG_CONFIG_HOME");
    EXPECT_TRUE(QFile::exists(target + u".pdf"_s));
    if (canReadPdf()) {
        EXPECT_EQ(readPdf(target + u".pdf"_s).size(), 5u);
    }

    window->activateWindow(); // this platform leaves no window active after a dialog
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return window.isNull(); }, Patience));
}

TEST_F(Preview, TellsWhenThereIsNoPrinter)
{
    if (!QPrinterInfo::availablePrinterNames().isEmpty()) GTEST_SKIP() << "this machine has a printer";
    struct Kept final : sys::Messages {
        sys::Answer show(const QString& text, int) override
        {
            texts.append(text);
            return sys::Answer::OK;
        }
        QStringList texts;
    } kept;
    const sys::MessageScope scope(kept);
    press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(kept.texts,
              QStringList(u"Es ist kein Drucker eingerichtet. Der Bericht kann als PDF gespeichert werden."_s));
    EXPECT_TRUE(window->isVisible());
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
