#include "platform/jet/sqlite/File.h"

#include "platform/jet/sqlite/ActionWriter.h"
#include "platform/jet/sqlite/ColumnType.h"
#include "platform/jet/sqlite/DefinitionWriter.h"
#include "platform/jet/sqlite/Names.h"
#include "platform/jet/sqlite/Query.h"
#include "platform/jet/store/Scopes.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace jet::sqlite {

namespace {

constexpr char NoteTable[] = "MSysZablager";

void bindCells(Statement::Run& run, const std::vector<store::Cell>& cells)
{
    for (std::size_t i = 0; i < cells.size(); ++i)
        run.bind(static_cast<int>(i), cells[i].value);
}

QByteArray columnName(const bind::Table& table, const store::Cell& cell)
{
    return quoted(table.columns[static_cast<std::size_t>(cell.column)].name);
}

} // namespace

File::File(const QString& path, sqlite::Connection::Mode mode, int lockTimeout)
    : m_connection(path, mode, lockTimeout)
{}

QStringList File::tables(int file)
{
    QStringList names;
    Statement statement(m_connection, "SELECT name FROM " + schemaName(file) +
                                          ".sqlite_master WHERE type='table' ORDER BY name");
    Statement::Run run(statement);
    while (run.step()) {
        const QString name = QString::fromUtf8(run.text(0));
        if (!name.startsWith(u"sqlite_") && !name.startsWith(u"MSys", Qt::CaseInsensitive))
            names.append(name);
    }
    return names;
}

bind::TablePtr File::table(const QString& name, int file)
{
    auto table = std::make_shared<bind::Table>();
    table->name = name;
    table->file = file;
    Statement statement(m_connection, "PRAGMA " + schemaName(file) + ".table_info(" + quoted(name) + ')');
    Statement::Run run(statement);
    while (run.step()) {
        const bool key = run.whole(5) == 1;
        table->columns.push_back(
            readColumnType(QString::fromUtf8(run.text(1)), QString::fromUtf8(run.text(2)), key));
    }
    return table;
}

bool File::hasIndex(const QString& table, const QString& index)
{
    Statement statement(m_connection, "SELECT name FROM sqlite_master WHERE type='index'");
    Statement::Run run(statement);
    while (run.step())
        if (bind::sameName(QString::fromUtf8(run.text(0)), indexName(table, index))) return true;
    return false;
}

bool File::isReserved(const QString& name) const
{
    return bind::sameName(name, u"_rowid_") || name.startsWith(u"sqlite_", Qt::CaseInsensitive);
}

std::vector<store::Note> File::notes(const QString& kind)
{
    std::vector<store::Note> notes;
    {
        Statement present(m_connection, "SELECT 1 FROM sqlite_master WHERE type='table' AND name=?");
        Statement::Run run(present);
        run.bindText(0, NoteTable);
        if (!run.step()) return notes;
    }
    Statement statement(m_connection,
                        QByteArray("SELECT name,first,second FROM ") + NoteTable + " WHERE kind=?");
    Statement::Run run(statement);
    run.bind(0, Value(kind));
    const auto text = [&](int column) { return QString::fromUtf8(run.text(column)); };
    while (run.step())
        notes.push_back({kind, text(0), text(1), text(2)});
    return notes;
}

void File::addNote(const store::Note& note)
{
    store::WriteScope scope(*this);
    m_connection.execute(QByteArray("CREATE TABLE IF NOT EXISTS ") + NoteTable +
                         "(kind TEXT,name TEXT,first TEXT,second TEXT)");
    {
        Statement statement(m_connection, QByteArray("INSERT INTO ") + NoteTable + " VALUES(?,?,?,?)");
        Statement::Run run(statement);
        int place = 0;
        for (const QString& text : {note.kind, note.name, note.first, note.second})
            run.bindText(place++, text.toUtf8());
        run.step();
    }
    scope.commit();
}

void File::removeNote(const QString& kind, const QString& name)
{
    if (notes(kind).empty()) return;
    Statement statement(m_connection, QByteArray("DELETE FROM ") + NoteTable + " WHERE kind=? AND name=?");
    Statement::Run run(statement);
    run.bindText(0, kind.toUtf8());
    run.bindText(1, name.toUtf8());
    run.step();
}

void File::define(const bind::BoundDefinition& definition, int file)
{
    const QByteArray text = writeDefinition(definition, file);
    if (!std::holds_alternative<sql::AlterColumn>(definition.definition)) return m_connection.execute(text);
    store::WriteScope scope(*this);
    m_connection.rewriteSchema(text);
    scope.commit();
}

std::unique_ptr<store::Query> File::query(const bind::BoundSelect& select, int parameters)
{
    return std::make_unique<Query>(m_connection, select, parameters);
}

std::unique_ptr<store::Action> File::action(const bind::BoundInsert& insert)
{
    const bool others = insert.table->file != 0 || (insert.select && overOthers(insert.select->tables));
    return std::make_unique<Action>(m_connection, writeInsert(insert), others);
}

std::unique_ptr<store::Action> File::action(const bind::BoundUpdate& update)
{
    return std::make_unique<Action>(m_connection, writeUpdate(update), false);
}

std::unique_ptr<store::Action> File::action(const bind::BoundDelete& statement)
{
    return std::make_unique<Action>(m_connection, writeDelete(statement), false);
}

std::unique_ptr<store::Test> File::test(const sql::Expression& criterion, int parameters)
{
    return std::make_unique<Test>(m_connection, criterion, parameters);
}

store::Key File::insert(const bind::Table& table, const std::vector<store::Cell>& cells)
{
    QByteArray names;
    QByteArray places;
    for (const auto& cell : cells) {
        names += (names.isEmpty() ? "" : ",") + columnName(table, cell);
        places += places.isEmpty() ? "?" : ",?";
    }
    const QByteArray values = cells.empty() ? " DEFAULT VALUES" : '(' + names + ") VALUES(" + places + ')';
    Statement::Run run(m_connection.prepared("INSERT INTO " + placed(table) + values));
    bindCells(run, cells);
    run.step();
    return store::Key(m_connection.lastRow());
}

void File::change(const bind::Table& table, store::Key key, const std::vector<store::Cell>& cells)
{
    QByteArray text = "UPDATE " + placed(table) + " SET ";
    for (std::size_t i = 0; i < cells.size(); ++i)
        text += (i > 0 ? "," : "") + columnName(table, cells[i]) + "=?";
    Statement::Run run(m_connection.prepared(text + " WHERE _rowid_=?"));
    bindCells(run, cells);
    run.bind(static_cast<int>(cells.size()), Value(key.bits()));
    run.step();
}

bool File::remove(const bind::Table& table, store::Key key)
{
    {
        Statement::Run run(m_connection.prepared("DELETE FROM " + placed(table) + " WHERE _rowid_=?"));
        run.bind(0, Value(key.bits()));
        run.step();
    }
    return m_connection.changes() > 0;
}

QStringList File::faults()
{
    QStringList faults;
    // Each entry of an index is looked up by itself: from the disk, where the file has no room in memory.
    m_connection.execute("PRAGMA cache_size=-524288");
    const auto small = qScopeGuard([&] { m_connection.useLittleMemory(); });
    Statement statement(m_connection, "PRAGMA integrity_check");
    Statement::Run run(statement);
    while (run.step())
        faults.append(QString::fromUtf8(run.text(0)));
    faults.removeAll(u"ok"_s);
    return faults;
}

void File::begin(Lock lock)
{
    m_connection.execute(lock == Lock::AtOnce ? "BEGIN IMMEDIATE" : "BEGIN");
}

bool File::attach(store::Connection& other, int file)
{
    if (!dynamic_cast<File*>(&other)) return false;
    attach(other.path(), file);
    m_connection.execute("PRAGMA " + schemaName(file) + ".synchronous=EXTRA");
    return true;
}

void File::attach(const QString& path, int file)
{
    Statement statement(m_connection, "ATTACH ? AS " + schemaName(file));
    Statement::Run run(statement);
    run.bindText(0, path.toUtf8());
    run.step();
}

void File::detach(int file)
{
    m_connection.execute("DETACH " + schemaName(file));
}

bind::TablePtr File::lend(const bind::Table& like, int file)
{
    attach(u":memory:"_s, file);
    sql::CreateTable create{like.name, {}};
    for (const Field& field : like.columns)
        create.columns.push_back({field.name, field.type, field.size, false, false});
    define({std::move(create), nullptr}, file);
    return table(like.name, file);
}

} // namespace jet::sqlite
