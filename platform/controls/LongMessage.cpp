#include "platform/controls/LongMessage.h"

#include "platform/controls/WindowMemory.h"
#include "platform/controls/Wiring.h"
#include "platform/system/Application.h"
#include "platform/system/FileFault.h"
#include "platform/system/GermanDialogs.h"

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStyle>
#include <QVBoxLayout>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype MostLines = 20; // of a message box
constexpr qsizetype MostCharacters = 2000;
constexpr QSize Size(900, 500);

void save(QWidget& dialog, const QString& text)
{
    QFileDialog choice(&dialog, u"Speichern"_s, {}, u"Textdateien (*.txt)"_s);
    choice.setAcceptMode(QFileDialog::AcceptSave);
    choice.setDefaultSuffix(u"txt"_s);
    choice.selectFile(u"Meldung.txt"_s);
    if (choice.exec() != QDialog::Accepted) return;
    const QString name = choice.selectedFiles().constFirst();
    QSaveFile file(name); // takes its name only when it is complete
    errno = EISDIR;       // a directory is refused without asking the system
    const bool saved = file.open(QIODevice::WriteOnly | QIODevice::Text) && file.write(text.toUtf8()) >= 0 &&
                       file.flush() && file.commit();
    if (!saved) throw sys::fileFault(errno, name);
}

} // namespace

bool isLongMessage(const QString& text)
{
    static const QRegularExpression tooWide(
        u"\\S{100}"_s); // it would not be broken, and widen the box to the screen
    return text.size() > MostCharacters || text.count(u'\n') > MostLines || text.contains(tooWide);
}

void showLongMessage(const QString& text, const QIcon& icon)
{
    const sys::GermanDialogs german; // the text's own menu, and the dialog for its file
    QDialog dialog(QApplication::activeWindow());
    dialog.setWindowTitle(sys::applicationTitle());
    auto* const picture = new QLabel(&dialog);
    const int side = dialog.style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    picture->setPixmap(icon.pixmap(side));
    auto* const shown = new QPlainTextEdit(text, &dialog);
    shown->setReadOnly(true);
    shown->setWordWrapMode(
        QTextOption::WordWrap); // a rule of "=" stays one line, whatever the window's width
    shown->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* const saving = new QPushButton(u"&Speichern ..."_s, &dialog);
    auto* const closing = new QPushButton(u"OK"_s, &dialog);
    saving->setAutoDefault(false);
    closing->setDefault(true);

    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(saving);
    buttons->addStretch();
    buttons->addWidget(closing);
    auto* const upper = new QHBoxLayout;
    upper->addWidget(picture, 0, Qt::AlignTop);
    upper->addWidget(shown, 1);
    auto* const all = new QVBoxLayout(&dialog);
    all->addLayout(upper);
    all->addLayout(buttons);

    verdrahte(saving, &QPushButton::clicked, &dialog, [&] { save(dialog, text); });
    verdrahte(closing, &QPushButton::clicked, &dialog, [&] { dialog.accept(); });
    dialog.resize(Size.boundedTo(roomFor(dialog)));
    closing->setFocus();
    dialog.exec();
}
