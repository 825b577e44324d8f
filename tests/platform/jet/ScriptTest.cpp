#include "tests/platform/jet/Script.h"
#include "tests/platform/jet/Notation.h"
#include "tests/platform/jet/Scratch.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

bool isSelection(QString sql)
{
    sql.remove(QRegularExpression(u"'[^']*'|\"[^\"]*\""_s));
    static const QRegularExpression into(u"\\bINTO\\b"_s, QRegularExpression::CaseInsensitiveOption);
    return sql.trimmed().startsWith(u"SELECT"_s, Qt::CaseInsensitive) && !sql.contains(into);
}

/// Runs the blocks of one file on fresh database files.
class ScriptRun {
public:
    explicit ScriptRun(const QString& file) : m_file(file) { useFile(u"Lager.2024"_s); }

    void run()
    {
        const std::vector<Block> blocks = readScript(m_file);
        ASSERT_FALSE(blocks.empty());
        for (const Block& block : blocks)
            guarded(block);
    }

private:
    void guarded(const Block& block)
    {
        const std::string refused = refusal([&] { runBlock(block); });
        if (!refused.empty()) fail(block, filled(block.statement()), refused, "no refusal");
    }

    void runBlock(const Block& block)
    {
        static const std::map<QString, void (ScriptRun::*)(const Block&)> kinds = {
            {u"setup"_s, &ScriptRun::setUp},     {u"rows"_s, &ScriptRun::addRows},
            {u"query"_s, &ScriptRun::query},     {u"values"_s, &ScriptRun::values},
            {u"columns"_s, &ScriptRun::columns}, {u"execute"_s, &ScriptRun::execute},
            {u"error"_s, &ScriptRun::error},     {u"use"_s, &ScriptRun::use},
            {u"link"_s, &ScriptRun::link},       {u"include"_s, &ScriptRun::include},
        };
        const auto kind = kinds.find(block.word);
        if (kind == kinds.end())
            fail(block, block.word, "an unknown kind of block", "one of those in Script.h");
        else
            (this->*kind->second)(block);
    }

    void setUp(const Block& block)
    {
        m_database->BeginTrans(); // one commit: a disk is slow
        for (const QString& statement : block.body) {
            const std::string refused = refusal([&] { m_database->Execute(filled(statement)); });
            if (!refused.empty()) fail(block, statement, refused, "no refusal");
        }
        m_database->CommitTrans();
    }

    void addRows(const Block& block)
    {
        const QStringList names = block.title.split(u" | "_s);
        const auto table = m_database->OpenRecordset(block.argument, jet::Kind::Dynaset);
        m_database->BeginTrans();
        for (const QString& line : block.body) {
            const QStringList cells = line.split(u" | "_s);
            if (cells.size() != names.size()) {
                fail(block, line, std::to_string(cells.size()) + " values", std::to_string(names.size()));
                continue;
            }
            table->AddNew();
            for (qsizetype i = 0; i < cells.size(); ++i)
                table->Set(names[i].trimmed(), read(cells[i]));
            table->Update();
        }
        m_database->CommitTrans();
    }

    void query(const Block& block)
    {
        const QString sql = filled(block.statement());
        const auto rows = m_database->OpenRecordset(sql);
        QStringList lines;
        if (!block.find.isEmpty()) {
            rows->FindFirst(block.find);
            lines += rows->NoMatch() ? u"no match"_s : shownRow(block, *rows);
        } else {
            for (; !rows->Eof(); rows->MoveNext())
                lines += shownRow(block, *rows);
        }
        compare(block, sql, lines);
    }

    static QString shownRow(const Block& block, const jet::Recordset& rows)
    {
        if (block.show.isEmpty()) return writtenRow(rows);
        QStringList cells;
        for (const QString& name : block.show)
            cells += written(rows[name]);
        return cells.join(u" | "_s);
    }

    void values(const Block& block)
    {
        for (const QString& line : block.body) {
            const qsizetype arrow = line.lastIndexOf(u" => "_s);
            const QString sql = u"SELECT "_s + line.left(arrow).trimmed() + u" AS X FROM Eins"_s;
            std::string got;
            const std::string refused = refusal([&] { got = rowsOf(*m_database, sql); });
            if (!refused.empty()) got = refused;
            const std::string wanted = line.mid(arrow + 4).trimmed().toStdString();
            if (got != wanted) fail(block, sql, got, wanted);
        }
    }

    void columns(const Block& block)
    {
        const QString sql = filled(block.statement());
        const auto rows = m_database->OpenRecordset(sql);
        QStringList lines;
        for (const jet::Field& field : rows->Fields())
            lines += field.name + u' ' + writtenType(field);
        compare(block, sql, lines);
    }

    void execute(const Block& block)
    {
        const QString sql = filled(block.statement());
        const qint64 count = m_database->Execute(sql);
        if (count != block.argument.toLongLong()) {
            fail(block, sql, std::to_string(count) + " rows", block.argument.toStdString());
        }
    }

    void error(const Block& block)
    {
        const QString sql = filled(block.statement());
        const std::string refused = refusal([&] {
            if (!isSelection(sql)) {
                m_database->Execute(sql);
                return;
            }
            const auto rows = m_database->OpenRecordset(sql);
            if (!block.find.isEmpty()) rows->FindFirst(block.find);
            all(*rows);
        });
        const std::string wanted = block.argument.toStdString() + ' ' + filled(block.title).toStdString();
        if (refused != wanted) fail(block, sql, refused.empty() ? "no refusal" : refused, wanted);
    }

    void use(const Block& block) { useFile(block.argument); }

    void useFile(const QString& file)
    {
        std::unique_ptr<jet::Database>& database = m_databases[file];
        if (!database) database = m_scratch.create(file);
        m_database = database.get();
    }

    void link(const Block& block)
    {
        m_database->CreateTableDef(block.argument, u"MS Access;DATABASE="_s + m_scratch.path(block.title),
                                   block.argument);
    }

    void include(const Block& block)
    {
        const QString file = QFileInfo(m_file).dir().filePath(block.argument);
        for (const Block& included : readScript(file))
            guarded(included);
    }

    QString filled(QString text) const { return text.replace(u"%DIR%"_s, QFileInfo(m_scratch.path(u"x"_s)).path()); }

    void compare(const Block& block, const QString& sql, const QStringList& lines) const
    {
        if (lines != block.expected) {
            fail(block, sql, lines.join(u'\n').toStdString(), block.expected.join(u'\n').toStdString());
        }
    }

    void fail(const Block& block, const QString& sql, const std::string& got, const std::string& wanted) const
    {
        ADD_FAILURE_AT(m_file.toStdString().c_str(), block.line) << block.title.toStdString() << '\n'
                                                                 << sql.toStdString() << "\n-- got:\n"
                                                                 << got << "\n-- wanted:\n"
                                                                 << wanted;
    }

    QString m_file;
    Scratch m_scratch;
    std::map<QString, std::unique_ptr<jet::Database>> m_databases;
    jet::Database* m_database = nullptr;
};

/// As std::string, which a failed test prints readably.
std::vector<std::string> scripts()
{
    QStringList files;
    QDirIterator search(QStringLiteral(JET_TEST_SCRIPTS), {u"*.test"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (search.hasNext())
        files += search.next();
    files.sort();
    std::vector<std::string> paths;
    for (const QString& file : files)
        paths.push_back(file.toStdString());
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
    ScriptRun(QString::fromStdString(GetParam())).run();
}

INSTANTIATE_TEST_SUITE_P(Jet, Script, testing::ValuesIn(scripts()), nameOf);
