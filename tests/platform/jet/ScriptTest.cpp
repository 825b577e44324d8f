#include "tests/platform/jet/Notation.h"
#include "tests/platform/jet/Scratch.h"
#include "tests/platform/jet/Walk.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <stdexcept>

// A test file of the engine is a row of blocks with blank lines between them; a line that begins with # before a block is
// a remark, a line that begins with a blank continues the one before. The first line of a block says what it is, the
// others are:
//
//   setup                    statements that must succeed
//   rows TABLE  A | B        rows that are added to a table, with the values of these columns
//   ask STATEMENT  title     "what stands for ... in the statement => answer"; without ... it is the statement's end.
//                            Rows answer "1 | Weizen; 2 | Hafer" or "-" for none, an action the number of its rows
//   types                    "statement => name and type of each column, ..."
//   walk KINDS SOURCE title  "call; call => where the recordset then stands", see Walk.h; kinds have a / between them
//   use FILE                 none: what follows goes to this database file, which is opened anew or created
//   link NAME  FILE          none: links the table of that name in another file
//   include FILE             none: the blocks of another file
//
// Values are written as Notation.h says. "!3061 'Preis'" answers a refusal of that number whose text holds the rest.

using namespace Qt::StringLiterals;

namespace {

/// One line of a block, taken apart at its last " => ".
struct Line {
    int number; ///< In the file, from 1.
    QString question;
    QString answer;
};

/// One block of a test file.
struct Block {
    int number = 0; ///< Of its first line in the file.
    QString word;
    QString argument; ///< What follows the word.
    QString title;    ///< What follows after two blanks.
    std::vector<Line> lines;
};

/// `directory` stands for %DIR%.
std::vector<Block> readScript(const QString& file, const QString& directory)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) throw std::runtime_error("cannot read " + file.toStdString());
    std::vector<Block> blocks;
    bool inBlock = false;
    const QString all = QString::fromUtf8(source.readAll()).replace(u"%DIR%"_s, directory);
    for (int number = 1; const QString& text : all.split(u'\n')) {
        if (text.isEmpty()) {
            inBlock = false;
        } else if (inBlock && text.startsWith(u' ')) {
            blocks.back().lines.back().question += text;
        } else if (inBlock) {
            blocks.back().lines.push_back({number, text, {}});
        } else if (!text.startsWith(u'#')) {
            const QString head = text.section(u"  "_s, 0, 0);
            blocks.push_back(
                {number, head.section(u' ', 0, 0), head.section(u' ', 1), text.section(u"  "_s, 1).trimmed(), {}});
            inBlock = true;
        }
        ++number;
    }
    for (Block& block : blocks)
        for (auto& [line, question, answer] : block.lines)
            if (const qsizetype arrow = question.lastIndexOf(u" => "_s); arrow >= 0) {
                answer = question.mid(arrow + 4).trimmed();
                question = question.left(arrow).trimmed();
            }
    return blocks;
}

bool isSelection(const QString& sql)
{
    return sql.startsWith(u"SELECT"_s, Qt::CaseInsensitive) && !sql.contains(u" INTO "_s, Qt::CaseInsensitive);
}

/// Runs the blocks of one file on fresh database files.
class ScriptRun {
public:
    explicit ScriptRun(const QString& file) { run(file); }

private:
    void run(const QString& file)
    {
        static const std::map<QString, void (ScriptRun::*)(const Block&)> kinds{
            {u"setup"_s, &ScriptRun::setUp}, {u"rows"_s, &ScriptRun::addRows},    {u"ask"_s, &ScriptRun::ask},
            {u"types"_s, &ScriptRun::ask},   {u"walk"_s, &ScriptRun::walk},       {u"use"_s, &ScriptRun::use},
            {u"link"_s, &ScriptRun::link},   {u"include"_s, &ScriptRun::include},
        };
        m_file = file;
        for (const Block& block : readScript(file, m_scratch.path({}))) {
            const auto kind = kinds.at(block.word); // an unknown one ends the test
            if (const std::string refused = refusal([&] { (this->*kind)(block); }); !refused.empty())
                fail(block.number, block.word, QString::fromStdString(refused), u"no refusal"_s);
        }
    }

    jet::Database& database()
    {
        auto& database = m_databases[m_name];
        const bool isThere = QFile::exists(m_scratch.path(m_name));
        if (!database) database = isThere ? m_scratch.open(m_name) : m_scratch.create(m_name);
        return *database;
    }

    void setUp(const Block& block)
    {
        database().BeginTrans(); // one commit: a disk is slow
        for (const Line& line : block.lines)
            database().Execute(line.question);
        database().CommitTrans();
    }

    void addRows(const Block& block)
    {
        const QStringList names = block.title.split(u" | "_s);
        const auto table = database().OpenRecordset(block.argument, jet::Kind::Dynaset);
        database().BeginTrans();
        for (const Line& line : block.lines) {
            const QStringList cells = line.question.split(u" | "_s);
            if (cells.size() != names.size())
                return fail(line.number, line.question, u"another number of values"_s, block.title);
            table->AddNew();
            for (qsizetype i = 0; i < cells.size(); ++i)
                table->Set(names[i], read(cells[i]));
            table->Update();
        }
        database().CommitTrans();
    }

    void ask(const Block& block)
    {
        for (const Line& line : block.lines) {
            QString sql = block.argument;
            if (sql.contains(u"..."))
                sql.replace(u"..."_s, line.question);
            else
                sql = (sql + u' ' + line.question).trimmed();
            compare(line, sql, [&] {
                if (block.word == u"types") return writtenTypes(database(), sql);
                return isSelection(sql) ? writtenRows(database(), sql) : QString::number(database().Execute(sql));
            });
        }
    }

    void walk(const Block& block)
    {
        for (const QString& kind : block.argument.section(u' ', 0, 0).split(u'/')) {
            Walk walk(database(), kind, block.argument.section(u' ', 1));
            for (const Line& line : block.lines)
                compare(line, kind + u": "_s + line.question, [&] { return walk.run(line.question); });
        }
    }

    void use(const Block& block)
    {
        m_name = block.argument;
        m_databases.erase(m_name);
    }

    void link(const Block& block)
    {
        database().CreateTableDef(block.argument, u"MS Access;DATABASE="_s + m_scratch.path(block.title),
                                  block.argument);
    }

    void include(const Block& block)
    {
        const QString including = m_file;
        run(QFileInfo(m_file).dir().filePath(block.argument));
        m_file = including;
    }

    void compare(const Line& line, const QString& asked, const std::function<QString()>& answer) const
    {
        QString got;
        const std::string refused = refusal([&] { got = answer(); });
        if (!refused.empty()) got = u'!' + QString::fromStdString(refused);
        const QString& wanted = line.answer;
        const bool fits = wanted.startsWith(u'!') ? got.startsWith(wanted.section(u' ', 0, 0) + u' ') &&
                                                        got.contains(wanted.section(u' ', 1))
                                                  : got == wanted;
        if (!fits) fail(line.number, asked, got, wanted);
    }

    void fail(int line, const QString& asked, const QString& got, const QString& wanted) const
    {
        ADD_FAILURE_AT(m_file.toStdString().c_str(), line)
            << asked.toStdString() << "\n-- got:    " << got.toStdString() << "\n-- wanted: " << wanted.toStdString();
    }

    QString m_file;
    Scratch m_scratch;
    std::map<QString, std::unique_ptr<jet::Database>> m_databases;
    QString m_name = u"Lager.2024"_s; ///< Of the database file in use.
};

/// As std::string, which a failed test prints readably.
std::vector<std::string> scripts()
{
    std::vector<std::string> paths;
    QDirIterator search(QStringLiteral(JET_TEST_SCRIPTS), {u"*.test"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (search.hasNext())
        paths.push_back(search.next().toStdString());
    std::ranges::sort(paths);
    return paths;
}

std::string nameOf(const testing::TestParamInfo<std::string>& info)
{
    const QFileInfo file(QString::fromStdString(info.param));
    return (file.dir().dirName() + u'_' + file.completeBaseName()).toStdString();
}

} // namespace

class Script : public testing::TestWithParam<std::string> {};

TEST_P(Script, ComesBackAsWritten)
{
    ScriptRun(QString::fromStdString(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Jet, Script, testing::ValuesIn(scripts()), nameOf);
