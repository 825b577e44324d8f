#include "platform/controls/MessageBoxes.h"

#include "platform/controls/LongMessage.h"
#include "platform/system/Application.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int IconMask = 0x70;

QMessageBox::Icon icon(int flags)
{
    switch (flags & IconMask) {
    case sys::Critical: return QMessageBox::Critical;
    case sys::Question: return QMessageBox::Question;
    case sys::Exclamation: return QMessageBox::Warning;
    case sys::Information: return QMessageBox::Information;
    default: return QMessageBox::NoIcon;
    }
}

QStyle::StandardPixmap picture(int flags)
{
    switch (icon(flags)) {
    case QMessageBox::Critical: return QStyle::SP_MessageBoxCritical;
    case QMessageBox::Question: return QStyle::SP_MessageBoxQuestion;
    case QMessageBox::Warning: return QStyle::SP_MessageBoxWarning;
    default: return QStyle::SP_MessageBoxInformation;
    }
}

QString caption(sys::Answer answer)
{
    switch (answer) {
    case sys::Answer::OK: return u"OK"_s;
    case sys::Answer::Cancel: return u"Abbrechen"_s;
    case sys::Answer::Abort: return u"&Abbrechen"_s;
    case sys::Answer::Retry: return u"&Wiederholen"_s;
    case sys::Answer::Ignore: return u"&Ignorieren"_s;
    case sys::Answer::Yes: return u"&Ja"_s;
    case sys::Answer::No: return u"&Nein"_s;
    }
    Q_UNREACHABLE();
}

} // namespace

sys::Answer MessageBoxes::show(const QString& text, int flags)
{
    if (sys::buttons(flags).size() == 1 && isLongMessage(text)) {
        QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
        showLongMessage(sys::withLineFeeds(text), QApplication::style()->standardIcon(picture(flags)));
        QGuiApplication::restoreOverrideCursor();
        return sys::defaultAnswer(flags);
    }
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(sys::applicationTitle());
    box.setIcon(icon(flags));
    box.setTextFormat(Qt::PlainText);
    box.setText(sys::withLineFeeds(text));
    std::vector<std::pair<QAbstractButton*, sys::Answer>> answers;
    for (const sys::Answer answer : sys::buttons(flags)) {
        // All of one role: Qt would take a button of the role "no" for what Esc means.
        QPushButton* const button = box.addButton(caption(answer), QMessageBox::AcceptRole);
        if (answer == sys::defaultAnswer(flags)) box.setDefaultButton(button);
        if (answer == sys::Answer::Cancel) box.setEscapeButton(button);
        answers.emplace_back(button, answer);
    }
    QGuiApplication::setOverrideCursor(Qt::ArrowCursor); // a box that waits for the user shows no hourglass
    box.exec();
    QGuiApplication::restoreOverrideCursor();
    for (const auto& [button, answer] : answers) {
        if (button == box.clickedButton()) return answer;
    }
    return sys::defaultAnswer(flags); // closed by the program itself, as when the host ends
}
