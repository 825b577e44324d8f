#include "platform/jet/Database.h"
#include "platform/jet/TableDef.h"
#include "tests/platform/jet/Scratch.h"
#include "tests/platform/jet/wrapped/WrappedStore.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>

// A test file of the engine is a row of blocks with blank lines between them; a line that begins with #
// before a block is a remark, a line that begins with a blank continues the one before. The first line of a
// block says what it is, the others are:
//
//   setup                    statements that must succeed
//   rows TABLE  A | B        rows that are added to a table, with the values of these columns
//   ask STATEMENT  title     "what stands for ... in the statement => answer"; without ... it is the
//                  statement's end.
//                            Rows answer "1 | Weizen; 2 | Hafer" or "-" for none, an action the number of its
//                            rows
//   types                    "statement => name and type of each column, ..."
//   walk KINDS SOURCE title  "call; call => where the recordset then stands", see Walk; kinds have a /
//                            between them
//   use FILE  LOCALE         none: what follows goes to this database file, which is opened anew or created
//   open FILE                "connect text => refusal, if any"
//   link CONNECT             "name = table of the other file => refusal, if any"
//   include FILE             none: the blocks of another file
//
// Values are written as Scratch.h says; "{3*N%,}" is a text that repeats, "N0,N1,N2,", and %% there % + 1;
// %DIR% is the folder of the database files. "!3061 'Preis'" answers a refusal of that number whose text
// holds the rest.

using namespace Qt::StringLiterals;

namespace {

/// A recordset that a test file walks through. Beside its own calls, such as "Set Menge = 5", it knows
///
///   Put F = value     Edit, Set and Update; answers what the field then holds
///   Mark, Back        keeps the current row's bookmark, goes back to it
///   BackToModified    goes to the row that was written last
///   Row 2             answers the row at that place, "gone" where there is none any more
///   From 2 criterion  answers the place that FindFrom finds
///   Count, Place      answer RecordCount and AbsolutePosition
///   elsewhere SQL     executes a statement as another program would
///   Close             closes the database
class Walk {
public:
    Walk(jet::Database& database, const QString& kind, const QString& source) : m_database(database)
    {
        m_rows =
            database.OpenRecordset(source, kind == u"Snapshot" ? jet::Kind::Snapshot : jet::Kind::Dynaset);
    }

    /// Does calls that stand with "; " between them. \returns the answer of the last one or, where it has
    /// none, the row that is current then, "Bof", "Eof" or both.
    QString run(const QString& calls)
    {
        QString answer;
        for (const QString& text : calls.split(u"; "_s))
            answer = call(text.section(u' ', 0, 0), text.section(u' ', 1));
        if (!answer.isEmpty()) return answer;
        if (m_rows->Bof()) return m_rows->Eof() ? u"Bof Eof"_s : u"Bof"_s;
        return m_rows->Eof() ? u"Eof"_s : writtenRow(*m_rows);
    }

private:
    QString call(const QString& name, const QString& argument)
    {
        static const std::map<QString, void (jet::Recordset::*)()> plain{
            {u"MoveFirst"_s, &jet::Recordset::MoveFirst}, {u"MoveLast"_s, &jet::Recordset::MoveLast},
            {u"MoveNext"_s, &jet::Recordset::MoveNext},   {u"MovePrevious"_s, &jet::Recordset::MovePrevious},
            {u"AddNew"_s, &jet::Recordset::AddNew},       {u"CancelUpdate"_s, &jet::Recordset::CancelUpdate},
            {u"Edit"_s, &jet::Recordset::Edit},           {u"Update"_s, &jet::Recordset::Update},
            {u"Delete"_s, &jet::Recordset::Delete},
        };
        if (plain.contains(name)) return (m_rows.get()->*plain.at(name))(), QString();
        const QString field = argument.section(u" = "_s, 0, 0);
        const jet::Value value = read(argument.section(u" = "_s, 1));
        const qsizetype place = argument.section(u' ', 0, 0).toInt();
        if (name == u"Count") return QString::number(m_rows->RecordCount());
        if (name == u"Place") return QString::number(m_rows->AbsolutePosition());
        if (name == u"From") return QString::number(m_rows->FindFrom(place, argument.section(u' ', 1)));
        if (name == u"Row") {
            const auto row = m_rows->RowAt(place);
            return row ? writtenRow(*row) : u"gone"_s;
        }
        if (name == u"Put") {
            m_rows->Edit();
            m_rows->Set(field, value);
            m_rows->Update();
            return written((*m_rows)[field]);
        }
        if (name == u"FindFirst") {
            m_rows->FindFirst(argument);
            return m_rows->NoMatch() ? u"no match"_s : QString();
        }
        if (name == u"Set")
            m_rows->Set(field, value);
        else if (name == u"Mark")
            m_mark = m_rows->GetBookmark();
        else if (name == u"Back")
            m_rows->SetBookmark(m_mark);
        else if (name == u"BackToModified")
            m_rows->SetBookmark(m_rows->LastModified());
        else if (name == u"Close")
            m_database.Close();
        else if (name == u"elsewhere")
            m_other.OpenDatabase(m_database.Name())->Execute(argument);
        else
            throw std::runtime_error("no call of a recordset: " + name.toStdString());
        return {};
    }

    jet::Database& m_database;
    jet::Engine m_other;
    std::unique_ptr<jet::Recordset> m_rows;
    jet::Bookmark m_mark;
};

/// "{3*N%,}" in a text stands for "N0,N1,N2,"; %% is the number after that of %.
QString repeated(QString text)
{
    static const QRegularExpression form(u"\\{(\\d+)\\*([^}]*)\\}"_s);
    for (auto match = form.match(text); match.hasMatch(); match = form.match(text)) {
        QString all;
        for (int i = 0; i < match.captured(1).toInt(); ++i)
            all +=
                match.captured(2).replace(u"%%"_s, QString::number(i + 1)).replace(u'%', QString::number(i));
        text.replace(match.capturedStart(), match.capturedLength(), all);
    }
    return text;
}

/// Runs the blocks of one file on fresh database files.
class ScriptRun {
public:
    explicit ScriptRun(jet::Engine& engine) : m_engine(engine) {}

    void run(const QString& name)
    {
        QFile file(QDir(QStringLiteral(JET_TEST_SCRIPTS)).filePath(name));
        if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("cannot read " + name.toStdString());
        QString text = QString::fromUtf8(file.readAll());
        text.replace(u"\n "_s, u" "_s).replace(u"%DIR%"_s, m_scratch.path({}));
        for (const QString& block : text.split(u"\n\n"_s)) {
            QStringList lines = block.split(u'\n', Qt::SkipEmptyParts);
            while (!lines.isEmpty() && lines.front().startsWith(u'#'))
                lines.removeFirst();
            if (lines.isEmpty()) continue;
            const QString head = lines.takeFirst();
            const QString left = head.section(u"  "_s, 0, 0);
            perform(left.section(u' ', 0, 0), left.section(u' ', 1), head.section(u"  "_s, 1).trimmed(),
                    lines);
        }
    }

private:
    /// The title is what follows after two blanks.
    void perform(const QString& word, const QString& argument, const QString& title, const QStringList& lines)
    {
        const auto ask = [&](const auto& answer) {
            for (const QString& line : lines)
                compare(line, answer);
        };
        if (word == u"include") {
            run(argument);
        } else if (word == u"use") {
            m_name = argument;
            m_locale = title;
            m_databases.erase(m_name);
            m_engine.release();
        } else if (word == u"setup" || word == u"rows") {
            database().BeginTrans(); // one commit: a disk is slow
            ask([&](const QString& line) {
                return word == u"setup" ? execute(line) : addRow(argument, title, line);
            });
            database().CommitTrans();
        } else if (word == u"ask") {
            const QString sql = argument.contains(u"...") ? argument : argument + u" ..."_s;
            ask([&](const QString& line) { return execute(QString(sql).replace(u"..."_s, line).trimmed()); });
        } else if (word == u"types") {
            ask([&](const QString& line) { return types(line); });
        } else if (word == u"open") {
            ask([&](const QString& line) {
                return m_engine.OpenDatabase(m_scratch.path(argument), line), QString();
            });
        } else if (word == u"link") {
            ask([&](const QString& line) {
                database().CreateTableDef(line.section(u" = "_s, 0, 0), argument, line.section(u" = "_s, 1));
                return QString();
            });
        } else if (word == u"walk") {
            for (const QString& kind : argument.section(u' ', 0, 0).split(u'/')) {
                Walk walk(database(), kind, argument.section(u' ', 1));
                ask([&](const QString& line) { return walk.run(line); });
            }
        } else {
            throw std::runtime_error("no kind of block: " + word.toStdString());
        }
    }

    jet::Database& database()
    {
        auto& database = m_databases[m_name];
        const QString path = m_scratch.path(m_name);
        if (!database && QFile::exists(path)) database = m_engine.OpenDatabase(path, m_locale);
        if (!database) database = m_engine.CreateDatabase(path, m_locale);
        return *database;
    }

    QString execute(const QString& sql)
    {
        if (sql.startsWith(u"SELECT"_s, Qt::CaseInsensitive) &&
            !sql.contains(u" INTO "_s, Qt::CaseInsensitive))
            return QString::fromStdString(rowsOf(database(), sql));
        return QString::number(database().Execute(sql));
    }

    QString addRow(const QString& table, const QString& columns, const QString& line)
    {
        const auto rows = database().OpenRecordset(table, jet::Kind::Dynaset);
        rows->AddNew();
        for (qsizetype i = 0; const QString& name : columns.split(u" | "_s))
            rows->Set(name, read(line.split(u" | "_s).value(i++)));
        rows->Update();
        return {};
    }

    QString types(const QString& sql)
    {
        static const char* const names[] = {"Null",   "Boolean", "Long", "Counter",
                                            "Double", "Date",    "Text", "Memo"};
        QStringList columns;
        for (const jet::Field& field : database().OpenRecordset(sql)->Fields()) {
            columns += field.name + u' ' + QString::fromLatin1(names[static_cast<int>(field.type)]);
            if (field.type == jet::Type::Text) columns.back() += u"(%1)"_s.arg(field.size);
        }
        return columns.join(u", "_s);
    }

    /// Compares the answer to a line with the one that stands behind its last " => "; without one it must not
    /// be refused.
    static void compare(const QString& line, const std::function<QString(const QString&)>& answer)
    {
        const qsizetype arrow = line.lastIndexOf(u" => "_s);
        const QString wanted = arrow < 0 ? QString() : line.mid(arrow + 4).trimmed();
        QString got;
        const std::string refused = refusal([&] { got = answer(repeated(line.left(arrow).trimmed())); });
        if (!refused.empty()) got = u'!' + QString::fromStdString(refused);
        const bool fits = wanted.startsWith(u'!') ? got.startsWith(wanted.section(u' ', 0, 0) + u' ') &&
                                                        got.contains(wanted.section(u' ', 1))
                          : arrow < 0 ? refused.empty()
                                      : got == wanted;
        EXPECT_TRUE(fits) << line.toStdString() << "\n-- got: " << got.toStdString();
    }

    jet::Engine& m_engine;
    Scratch m_scratch;
    std::map<QString, std::unique_ptr<jet::Database>> m_databases;
    QString m_name = u"Lager.2024"_s; ///< Of the database file in use.
    QString m_locale;
};

/// Names of the test files; as std::string, which a failed test prints readably.
std::vector<std::string> scripts()
{
    std::vector<std::string> names;
    for (const QString& file : QDir(QStringLiteral(JET_TEST_SCRIPTS)).entryList({u"*.test"_s}, QDir::Files))
        names.push_back(file.chopped(5).toStdString());
    return names;
}

} // namespace

class Script : public testing::TestWithParam<std::string> {};

TEST_P(Script, ComesBackAsWritten)
{
    ScriptRun(jet::engine()).run(QString::fromStdString(GetParam()) + u".test"_s);
}

TEST_P(Script, ComesBackTheSameFromAnotherStore)
{
    jet::Engine other(std::make_unique<WrappedStore>());
    ScriptRun(other).run(QString::fromStdString(GetParam()) + u".test"_s);
}

INSTANTIATE_TEST_SUITE_P(Jet, Script, testing::ValuesIn(scripts()),
                         [](const auto& script) { return script.param; });
