#include "platform/controls/Tasten.h"
#include "tests/support/Pdf.h"
#include "tests/support/Print.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QDir tree()
{
    return QDir(QStringLiteral(SOURCE_TREE));
}

/// The pages; the book that includes them is none.
QStringList handbook()
{
    const QString folder = u"docs/handbuch/"_s;
    QStringList pages = QDir(tree().filePath(folder)).entryList({u"*.adoc"_s});
    pages.removeOne(u"handbuch.adoc"_s);
    return pages.replaceInStrings(QRegularExpression(u"^"_s), folder);
}

const QString ForProgrammers = u"docs/handbuch/wirtsprogramme.adoc"_s; // quotes names and code, not the screen

QStringList documents()
{
    return QStringList{u"README.md"_s,     u"docs/architecture.md"_s, u"docs/contributing.md"_s,
                       u"docs/hosts.md"_s, u"docs/report-forms.md"_s, u"bench/README.md"_s} +
           handbook();
}

QString textOf(const QString& name)
{
    QFile file(tree().filePath(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// All texts of a folder, without its folders.
QString textsIn(const QString& folder)
{
    QString texts;
    for (const QString& file : QDir(tree().filePath(folder)).entryList(QDir::Files))
        texts += textOf(folder + u'/' + file);
    return texts;
}

/// The texts that the first group of a pattern takes, in ascending order, each once.
QStringList captured(const QString& text, const QString& pattern)
{
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    QStringList found;
    for (auto match = expression.globalMatch(text); match.hasNext();)
        found.append(match.next().captured(1));
    found.sort();
    found.removeDuplicates();
    return found;
}

QString help()
{
    QProcess program;
    program.start(QStringLiteral(PROGRAM), {u"--help"_s});
    EXPECT_TRUE(program.waitForFinished()) << program.errorString().toStdString();
    EXPECT_EQ(program.exitCode(), 0);
    return QString::fromUtf8(program.readAllStandardOutput());
}

/// What the program can show: the captions of its screens and the string literals of its sources, without mnemonics.
QStringList textsOfTheProgram()
{
    QStringList texts;
    for (const auto& room : {u"overview"_s, u"delivery"_s, u"transfer"_s, u"masks"_s, u"core"_s, u"platform"_s}) {
        QDirIterator files(tree().filePath(room), {u"*.ui"_s, u"*.cpp"_s, u"*.h"_s}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString text = textOf(files.next());
            texts += captured(text, u"<string>([^<]+)</string>"_s) + captured(text, u"\"((?:[^\"\\\\\n]|\\\\.)+)\""_s);
        }
    }
    return texts.replaceInStrings(u"&amp;"_s, u"&"_s).replaceInStrings(u"&"_s, QString());
}

/// Whether a text of the handbook is one of the program's; "…" stands for what differs from case to case.
bool isShown(const QString& quoted, const QStringList& texts)
{
    if (!quoted.contains(u'…')) return texts.contains(quoted);
    const QStringList pieces = quoted.split(u'…', Qt::SkipEmptyParts);
    return std::all_of(pieces.begin(), pieces.end(), [&](const QString& piece) {
        return std::any_of(texts.begin(), texts.end(),
                           [&](const QString& text) { return text.contains(piece.trimmed()); });
    });
}

} // namespace

TEST(Documents, NameTheCommandsAndOptionsThatTheProgramHas)
{
    const QString known = captured(help(), u"^(zablager .*)$"_s).join(u'\n');
    const QStringList commands = captured(known, u"^zablager ([a-z]+)"_s);
    const QStringList options = captured(known, u"(--[a-z]+)"_s);
    const QString described = captured(textOf(u"README.md"_s), u"^\\| `(zablager .*)` \\|"_s).join(u'\n');
    EXPECT_EQ(captured(described, u"^zablager ([a-z]+)"_s), commands);
    EXPECT_EQ(captured(described, u"(--[a-z]+)"_s), options);

    for (const QString& document : documents()) {
        const QString calls = captured(textOf(document), u"`(zablager [^`]+)`"_s).join(u'\n');
        for (const QString& command : captured(calls, u"^zablager ([a-z]+)"_s)) {
            EXPECT_TRUE(commands.contains(command)) << document.toStdString() << " names " << command.toStdString();
        }
        for (const QString& option : captured(calls, u"(--[a-z]+)"_s)) {
            EXPECT_TRUE(options.contains(option)) << document.toStdString() << " names " << option.toStdString();
        }
    }
}

TEST(Documents, NamePathsAndPresetsThatExist)
{
    const QString presets = textOf(u"CMakePresets.json"_s);
    for (const QString& document : documents()) {
        const QString text = textOf(document);
        for (
            const QString& path : captured(
                text,
                u"`((?:bench|cmake|component|core|delivery|docs|host|include|install|overview|platform|tests|transfer)/[^` ]*)`"_s)) {
            EXPECT_TRUE(tree().exists(path)) << document.toStdString() << " names " << path.toStdString();
        }
        for (const QString& preset : captured(text, u"--preset (\\w+)"_s)) {
            EXPECT_TRUE(presets.contains(u"\"name\": \""_s + preset + u'"')) << preset.toStdString();
        }
    }
}

TEST(Documents, QuoteTheScreenLetterForLetter)
{
    const QStringList texts = textsOfTheProgram();
    for (const QString& page : handbook()) {
        if (page == ForProgrammers) continue;
        const QString text = textOf(page);
        QStringList quoted = captured(text, u"`([^`]+)`"_s) + captured(text, u"menu:([^\\[]+)\\["_s) +
                             captured(text, u"menu:[^\\[]+\\[([^\\]]+)\\]"_s);
        quoted.removeIf([](const QString& words) { return words.startsWith(u"zablager "); });
        EXPECT_FALSE(quoted.isEmpty());
        for (const QString& words : quoted)
            EXPECT_TRUE(isShown(words, texts)) << page.toStdString() << " quotes " << words.toStdString();
    }
}

TEST(Documents, TellTheKeysThatTheProgramHas)
{
    QStringList lines;
    for (const Tastenzeile& line : tastentabelle()) {
        if (line.gilt == Geltung::Reserviert) continue;
        QStringList names;
        for (const QKeySequence& key : line.tasten)
            names.append(u"kbd:["_s + tastenname(key) + u']');
        lines.append(names.join(u", "_s) + u"\n|"_s + line.wirkung);
    }
    lines.sort();
    EXPECT_EQ(captured(textOf(u"docs/handbuch/tasten.adoc"_s), u"^\\|(kbd:.*\n\\|.*)$"_s), lines);
}

TEST(Documents, StandInOneFileForPrintingWithoutUnreadMarkup)
{
    if (QStandardPaths::findExecutable(u"asciidoctor-pdf"_s).isEmpty())
        GTEST_SKIP() << "asciidoctor-pdf is not installed (package ruby-asciidoctor-pdf)";
    NEEDS_PDFTOTEXT;
    QStringList lines;
    for (const QStringList& page : readPdf(QStringLiteral(HANDBOOK_PDF)))
        lines += page;
    for (const QString& page : handbook()) {
        const QString title = captured(textOf(page), u"^(?:ifdef::buch\\[)?= ([^]\n]+)"_s).value(0);
        EXPECT_TRUE(lines.contains(title)) << page.toStdString() << ": " << title.toStdString();
        EXPECT_EQ(captured(textOf(page), u"xref:(?!index)([a-z-]+\\.adoc\\[)"_s), QStringList())
            << "lead to no chapter";
    }
    EXPECT_EQ(lines.filter(QRegularExpression(u"(kbd|menu|xref|image|include):|<<|>>|\\.adoc|\\{\\w+\\}"_s)),
              QStringList());
}

TEST(Documents, ShowCodeOfHostsThatAreBuiltAndRun)
{
    static const QRegularExpression indent(u"^ +"_s, QRegularExpression::MultilineOption);
    const QString hosts = textsIn(u"tests/package/client"_s).remove(indent);
    const QStringList english = captured(textOf(u"docs/hosts.md"_s), u"^```[a-z]+\n([^`]+)^```$"_s);
    const QStringList german = captured(textOf(ForProgrammers), u"^----\n([^`]+?)^----$"_s);
    EXPECT_FALSE(english.isEmpty());
    EXPECT_FALSE(german.isEmpty());
    for (QString block : english + german)
        EXPECT_TRUE(hosts.contains(block.remove(indent))) << block.toStdString();
}

TEST(Documents, NameWhatHostsFind)
{
    QString found;
    for (const auto& folder : {u"include/zablager"_s, u"core"_s, u"component"_s, u"component/python"_s,
                               u"tests/package"_s, u"tests/package/client"_s})
        found += textsIn(folder);
    const QString text = textOf(ForProgrammers);
    for (const QString& name : captured(text, u"`([^`]+)`"_s))
        EXPECT_TRUE(found.contains(name)) << name.toStdString();
    for (const QString& property : captured(found, u"Q_PROPERTY\\(\\w+ (\\S+)"_s))
        EXPECT_TRUE(text.contains(u'`' + property + u'`')) << property.toStdString();
}

TEST(Documents, GiveAReasonForEachPackageThatIsInstalled)
{
    const QString rows = captured(textOf(u"README.md"_s), u"^## What it rests on$([^#]*)^## "_s).value(0);
    const QString names = captured(rows, u"^\\| (`[^|]+) \\|"_s).join(u' ');
    EXPECT_EQ(captured(names, u"`([^`]+)`"_s), captured(textOf(u"install/packages.txt"_s), u"^([^#\\s]\\S*)\\s"_s));
}
