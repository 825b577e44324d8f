#include "platform/controls/MessageBoxes.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Wiring.h"
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

using namespace Qt::StringLiterals;
using namespace sys;

namespace {

/// The captions as they stand from left to right.
QString captions(const QWidget& box)
{
    std::map<int, QString> texts;
    for (const QPushButton* button : box.findChildren<QPushButton*>())
        texts[button->x()] += button->text().remove(u'&') + u' ';
    QString all;
    for (const auto& [x, text] : texts)
        all += text;
    return all.trimmed();
}

QString textOf(const QWidget& box)
{
    return qobject_cast<const QMessageBox*>(&box)->text();
}

} // namespace

TEST(MessageBoxes, AreAnsweredByKeyboard)
{
    const struct {
        QStringView captions;
        int flags;
        QStringView keys;
        Answer answer;
    } rows[] = {
        {u"OK", OKOnly | Critical, u"{Return}", Answer::OK},
        {u"OK", OKOnly | Information, u"{Esc}", Answer::OK},
        {u"Ja Nein", YesNo | Question, u"{Return}", Answer::Yes},
        {u"Ja Nein", YesNo | Question | DefaultButton2, u"{Return}", Answer::No},
        {u"Ja Nein", YesNo | Question | DefaultButton2, u"{Alt+J}", Answer::Yes},
        {u"Ja Nein", YesNo | Question, u"{Esc}{Right}{Space}", Answer::No},
        {u"Abbrechen Wiederholen Ignorieren", AbortRetryIgnore | DefaultButton3, u"{Enter}", Answer::Ignore},
        {u"Abbrechen Wiederholen Ignorieren", AbortRetryIgnore | DefaultButton3, u"{Alt+W}", Answer::Retry},
        {u"Abbrechen Wiederholen Ignorieren", AbortRetryIgnore, u"{Esc}{Space}", Answer::Abort},
        {u"Ja Nein Abbrechen", YesNoCancel | Question | DefaultButton2, u"{Return}", Answer::No},
        {u"Ja Nein Abbrechen", YesNoCancel | Question, u"{Esc}", Answer::Cancel},
        {u"OK Abbrechen", OKCancel | Critical, u"{Esc}", Answer::Cancel},
    };
    QWidget window;
    window.show();
    QApplication::setActiveWindow(&window);
    for (const auto& row : rows) {
        imNaechstenFenster([&](QWidget& box) {
            EXPECT_EQ(captions(box), row.captions);
            EXPECT_EQ(textOf(box), u"A<b>B & C\nzwei\ndrei"_s);
            EXPECT_EQ(box.findChild<QLabel*>(u"qt_msgbox_label"_s)->textFormat(), Qt::PlainText);
            EXPECT_EQ(box.parentWidget(), &window);
            EXPECT_EQ(box.windowTitle(), u"ZABLAGER"_s);
            if (row.keys.startsWith(u"{Esc}{")) box.close(); // a question that cannot be given up stays
            tippe(row.keys);
        });
        EXPECT_EQ(MessageBoxes().show(u"A<b>B & C\rzwei\r\ndrei"_s, row.flags), row.answer) << row.flags;
        QApplication::setActiveWindow(&window);
    }
}

// A text of many lines scrolls, letter for letter, and can be kept.
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
        imNaechstenFenster([&](QWidget& dialog) {
            auto* const edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
            edit->setText(name);
            QTest::keyClick(edit, Qt::Key_Return);
        });
        saving->click();
        box.close();
    });
    MessageBoxes boxes;
    const MessageScope scope(boxes);
    EXPECT_EQ(boxes.show(text, OKOnly | Critical), Answer::OK);
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll()), QString(text).remove(u'\r'));
}

TEST(Wiring, AHandlerThatFailsIsReportedAndRefuses)
{
    for (const auto& [key, refused] : {std::pair{"{Alt+I}", true}, {"{Alt+A}", true}, {"{Alt+W}", false}}) {
        MessageBoxes boxes;
        const MessageScope scope(boxes);
        TextBox field;
        int tries = 0;
        verdrahte(&field, &TextBox::Validate, &field, [&tries](Cancel&) {
            if (++tries == 1) throw jet::Error(jet::ErrorNumber::Locked, u"Gesperrt."_s);
        });
        sys::MausWarten();
        imNaechstenFenster([key = key](QWidget& box) {
            EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
            EXPECT_EQ(qobject_cast<QMessageBox*>(&box)->icon(), QMessageBox::Critical);
            EXPECT_TRUE(textOf(box).endsWith(u"Fehler: 3218 wurde ausgelöst durch ZABLAGER\nGesperrt."_s));
            tippe(QString::fromUtf8(key));
        });
        Cancel cancel;
        Q_EMIT field.Validate(cancel);
        EXPECT_EQ(bool(cancel), refused) << key;
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr); // the report has ended the hourglass
    }
}
