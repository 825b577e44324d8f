#include "platform/controls/MessageBoxes.h"

#include "platform/system/ErrorReport.h"
#include "platform/system/Pointer.h"
#include "tests/support/Bildschirm.h"
#include "tests/support/Print.h"

#include <zablager/DatabaseError.h>

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <memory>

#include <sys/resource.h>

using namespace Qt::StringLiterals;
using namespace sys;

namespace {

void limitFileSize(rlim_t room) ///< Of this process: a disk that is full.
{
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = room;
    setrlimit(RLIMIT_FSIZE, &limit);
}

/// The captions as they stand from left to right.
QStringList captions(const QWidget& box)
{
    QList<QPushButton*> buttons = box.findChildren<QPushButton*>();
    std::sort(buttons.begin(), buttons.end(), [](auto* a, auto* b) { return a->x() < b->x(); });
    QStringList texts;
    for (const QPushButton* button : buttons)
        texts.append(button->text().remove(u'&'));
    return texts;
}

QString textOf(const QWidget& box)
{
    return qobject_cast<const QMessageBox*>(&box)->text();
}

} // namespace

TEST(MessageBoxes, AreAnsweredByKeyboard)
{
    struct Case {
        QStringList captions;
        int flags;
        Qt::Key key;
        Qt::KeyboardModifier modifier;
        Answer answer;
    };
    const QStringList yesNo = {u"Ja"_s, u"Nein"_s};
    const QStringList three = {u"Abbrechen"_s, u"Wiederholen"_s, u"Ignorieren"_s};
    const Case cases[] = {
        {{u"OK"_s}, OKOnly | Critical, Qt::Key_Return, Qt::NoModifier, Answer::OK},
        {{u"OK"_s}, OKOnly | Information, Qt::Key_Escape, Qt::NoModifier, Answer::OK},
        {yesNo, YesNo | Question, Qt::Key_Return, Qt::NoModifier, Answer::Yes},
        {yesNo, YesNo | Question | DefaultButton2, Qt::Key_Return, Qt::NoModifier, Answer::No},
        {yesNo, YesNo | Question | DefaultButton2, Qt::Key_J, Qt::AltModifier, Answer::Yes},
        {three, AbortRetryIgnore | Critical | DefaultButton3, Qt::Key_Enter, Qt::NoModifier, Answer::Ignore},
        {three, AbortRetryIgnore | Critical | DefaultButton3, Qt::Key_W, Qt::AltModifier, Answer::Retry},
        {three, AbortRetryIgnore | Critical, Qt::Key_Space, Qt::NoModifier, Answer::Abort},
        {yesNo + QStringList(u"Abbrechen"_s), YesNoCancel | Question | DefaultButton2, Qt::Key_Return, Qt::NoModifier,
         Answer::No},
        {yesNo + QStringList(u"Abbrechen"_s), YesNoCancel | Question, Qt::Key_Escape, Qt::NoModifier, Answer::Cancel},
        {{u"OK"_s, u"Abbrechen"_s}, OKCancel | Critical, Qt::Key_Escape, Qt::NoModifier, Answer::Cancel},
    };
    for (const Case& c : cases) {
        imNaechstenFenster([&](QWidget& box) {
            EXPECT_EQ(captions(box), c.captions);
            QTest::keyClick(box.focusWidget(), c.key, c.modifier);
        });
        EXPECT_EQ(MessageBoxes().show(u"Frage"_s, c.flags), c.answer) << c.flags << ' ' << c.key;
    }
}

TEST(MessageBoxes, LeaveAQuestionOpenUntilItIsAnswered)
{
    for (const int flags : {int(YesNo), int(AbortRetryIgnore)}) {
        imNaechstenFenster([](QWidget& box) {
            QTest::keyClick(&box, Qt::Key_Escape);
            box.close();
            QCoreApplication::processEvents();
            EXPECT_TRUE(box.isVisible());
            QTest::keyClick(box.focusWidget(), Qt::Key_Right);
            QTest::keyClick(box.focusWidget(), Qt::Key_Space);
        });
        EXPECT_EQ(MessageBoxes().show(u"Frage"_s, flags), flags == YesNo ? Answer::No : Answer::Retry);
    }
}

TEST(MessageBoxes, ShowThePlainTextOverTheActiveWindow)
{
    QWidget window;
    window.show();
    QApplication::setActiveWindow(&window);
    imNaechstenFenster([&](QWidget& box) {
        EXPECT_EQ(textOf(box), u"A<b>B & C\nzwei\ndrei"_s);
        EXPECT_EQ(box.findChild<QLabel*>(u"qt_msgbox_label"_s)->textFormat(), Qt::PlainText);
        EXPECT_EQ(box.parentWidget(), &window);
        EXPECT_EQ(box.windowTitle(), u"ZABLAGER"_s);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    MessageBoxes().show(u"A<b>B & C\rzwei\r\ndrei"_s, Exclamation);
}

TEST(MessageBoxes, CarryTheCommonErrorReport)
{
    MessageBoxes boxes;
    const MessageScope scope(boxes);
    int tries = 0;
    sys::MausWarten();
    imNaechstenFenster([](QWidget& box) {
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        EXPECT_EQ(qobject_cast<QMessageBox*>(&box)->icon(), QMessageBox::Critical);
        EXPECT_EQ(
            textOf(box),
            u"Es ist ein kritischer Zustand aufgetreten.\n\nFehler: 3218 wurde ausgelöst durch ZABLAGER\nGesperrt."_s);
        QTest::keyClick(box.focusWidget(), Qt::Key_W, Qt::AltModifier);
    });
    EXPECT_EQ(underErrorReport({[&] {
                  if (++tries == 1) throw jet::Error(jet::ErrorNumber::Locked, u"Gesperrt."_s);
              }}),
              Outcome::Completed);
    EXPECT_EQ(tries, 2);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr); // the report has ended the hourglass
}

// A text of many lines scrolls, letter for letter, and can be kept; that the disk is full is told, and tried again.
TEST(MessageBoxes, ALongTextScrollsAndIsSaved)
{
    const QTemporaryDir directory;
    const QString name = directory.filePath(u"befund.txt"_s);
    QString text;
    for (int line = 1; line <= 60; ++line)
        text += u"\r\nZeile "_s + QString::number(line) + u" für Mittel"_s;
    text += u"\r\n"_s + QString(158, u'=');
    imNaechstenFenster([&](QWidget& box) {
        auto* const shown = box.findChild<QPlainTextEdit*>();
        ASSERT_TRUE(shown);
        EXPECT_EQ(shown->toPlainText(), QString(text).remove(u'\r'));
        shown->document()->documentLayout()->blockBoundingRect(shown->document()->lastBlock()); // lays it out
        EXPECT_TRUE(box.screen()->availableGeometry().contains(box.frameGeometry()));
        EXPECT_EQ(shown->document()->lastBlock().layout()->lineCount(), 1) << "a rule is not wrapped";
        const std::unique_ptr<QMenu> menu(shown->createStandardContextMenu());
        EXPECT_TRUE(menu->actions().constFirst()->text().contains(u"Kopieren"_s));
        auto* const saving = box.findChildren<QPushButton*>().constFirst();
        EXPECT_EQ(saving->text(), u"&Speichern ..."_s);
        const auto enterName = [&](QWidget& dialog) {
            auto* const edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
            edit->setText(name);
            QTest::keyClick(edit, Qt::Key_Return);
        };
        const auto before = std::signal(SIGXFSZ, SIG_IGN); // a write fails instead of ending the process
        limitFileSize(100);
        imNaechstenFenster([&](QWidget& dialog) {
            imNaechstenFenster([&](QWidget& report) { // comes when the dialog has closed
                limitFileSize(RLIM_INFINITY);
                EXPECT_TRUE(textOf(report).endsWith(u"\nDatenträger voll: "_s + name)) << textOf(report).toStdString();
                imNaechstenFenster(enterName);
                for (QPushButton* button : report.findChildren<QPushButton*>())
                    if (button->text() == u"&Wiederholen"_s) button->click(); // at once, as no mnemonic does
            });
            enterName(dialog);
        });
        saving->click();
        std::signal(SIGXFSZ, before);
        box.close();
    });
    MessageBoxes boxes;
    const MessageScope scope(boxes);
    EXPECT_EQ(boxes.show(text, OKOnly | Critical), Answer::OK);
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll()), QString(text).remove(u'\r'));
}
