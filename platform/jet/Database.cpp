#include "platform/jet/Database.h"

#include "platform/jet/ConnectText.h"
#include "platform/jet/Errors.h"
#include "platform/jet/Rows.h"
#include "platform/jet/Session.h"
#include "platform/jet/sql/Lexer.h"
#include "platform/jet/sqlite/Plan.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace jet {

namespace {

using sqlite::Plan;
using sqlite::Statement;

/// A single word is the name of a table, and so is a text with blanks that a table of the file is called by.
bool isTableName(const QString& source, const sql::Shape& shape, const sqlite::Catalogue& catalogue)
{
    if (shape.tokens.size() == 2 && shape.tokens.front().kind == sql::TokenKind::Name) return true;
    if (source.startsWith(u"SELECT", Qt::CaseInsensitive)) return false;
    return catalogue.table(source) || catalogue.link(source);
}

qint64 runAction(sqlite::Connection& connection, const Plan& plan, const sql::Shape& shape)
{
    if (!plan.definition.isEmpty()) connection.execute(plan.definition);
    if (plan.action.isEmpty()) return 0;
    std::unique_ptr<Statement> own; // over other files: not kept, since they are let go
    if (plan.attachments) own = std::make_unique<Statement>(connection, plan.action);
    Statement::Run run(own ? *own : connection.prepared(plan.action));
    bindParameters(run, shape.parameters);
    run.step();
    return connection.changes();
}

qint64 execute(Database::Session& session, const sql::Shape& shape)
{
    auto& connection = session.use();
    const auto plan = planOf(connection, shape, session.openFile);
    if (plan->select) raise(ErrorNumber::CannotExecuteSelect);
    if (!plan->changesSchema) return runAction(connection, *plan, shape);
    qint64 affected = 0;
    {
        // Of another file only what is written is locked: who copies rows out does not keep others from booking.
        const auto lock = plan->attachments ? sqlite::WriteScope::Lock::WhenWriting : sqlite::WriteScope::Lock::AtOnce;
        sqlite::WriteScope scope(connection, lock);
        if (!plan->droppedLink.isEmpty()) connection.catalogue().removeLink(plan->droppedLink);
        affected = runAction(connection, *plan, shape);
        scope.commit();
    }
    connection.forgetIfChanged();
    return affected;
}

/// What also comes of a file that was emptied, cut or overwritten while it was open.
bool comesOfDamage(ErrorNumber number)
{
    using enum ErrorNumber;
    constexpr ErrorNumber Numbers[] = {ReservedError, TooFewParameters, ObjectNotFound,
                                       UnknownTable,  UnknownFormat,    NoSuchTable};
    return std::ranges::find(Numbers, number) != std::end(Numbers);
}

/// What is said of a statement or a value, and is told of which file it was asked.
bool needsFile(ErrorNumber number)
{
    using enum ErrorNumber;
    constexpr ErrorNumber Numbers[] = {Overflow,     ReservedError, ReadOnly,     TooFewParameters,
                                       UnknownTable, NoSuchField,   TypeMismatch, ConversionFailed};
    return std::ranges::find(Numbers, number) != std::end(Numbers);
}

} // namespace

sqlite::Connection& Database::Session::use() const
{
    if (!connection) raise(ErrorNumber::ObjectClosed);
    return *connection;
}

bool Database::Session::hasTransaction()
{
    transaction = transaction && use().inTransaction(); // a full disk ends it by itself
    return transaction;
}

void Database::Session::undo()
{
    if (hasTransaction()) connection->execute("ROLLBACK");
    transaction = false;
}

void Database::Session::tell(const Error& error) const
{
    if (comesOfDamage(error.number()) && connection && !connection->inTransaction()) requireDatabase(path);
    throw needsFile(error.number()) ? named(error, u"Datei"_s, path) : error;
}

void Database::Session::letGo()
{
    giveBack(std::exchange(connection, nullptr));
}

Database::Database(std::shared_ptr<Session> session) : m_session(std::move(session)) {}

Database::~Database()
{
    try {
        Close();
    } catch (const Error&) {
        // Whoever must know whether a transaction was kept calls Close; here nobody can be told any more.
        m_session->undo();
        m_session->letGo();
    }
}

qint64 Database::Execute(const QString& sql)
{
    const auto shape = sql::shapeOf(sql);
    return m_session->told([&] { return m_session->withPresentSchema([&] { return execute(*m_session, shape); }); });
}

std::unique_ptr<Recordset> Database::OpenRecordset(const QString& source, Kind kind)
{
    return m_session->told([&] { return std::unique_ptr<Recordset>(new Recordset(rowsOf(source, kind))); });
}

std::unique_ptr<Recordset::Rows> Database::rowsOf(const QString& source, Kind kind) const
{
    auto shape = sql::shapeOf(source);
    const bool isTable = isTableName(source, shape, m_session->use().catalogue());
    if (kind == Kind::Table && !isTable) raise(ErrorNumber::UnknownTable, {source});
    if (kind == Kind::Default) kind = isTable ? Kind::Table : Kind::Dynaset;
    if (isTable) shape = sql::shapeOf(u"SELECT * FROM ["_s + source + u"]"_s);
    const auto open = [&] {
        auto plan = planOf(m_session->use(), shape, m_session->openFile);
        if (!plan->select) raise(ErrorNumber::UnknownStatement);
        return openRows(m_session, std::move(plan), shape, kind);
    };
    auto rows = m_session->withPresentSchema(open);
    if (m_session->use().forgetIfNoticed()) rows = open(); // what was read may lack a column that is there now
    return rows;
}

std::vector<TableDef> Database::TableDefs() const
{
    return m_session->told([&] {
        m_session->use().forgetIfChanged();
        const auto& catalogue = m_session->use().catalogue();
        std::vector<TableDef> tables;
        for (const QString& name : catalogue.tables())
            tables.push_back({name, catalogue.table(name)->columns, {}, {}});
        for (const auto& link : catalogue.links())
            tables.push_back({link.name, {}, link.connect, link.sourceTable});
        return tables;
    });
}

void Database::CreateTableDef(const QString& name, const QString& connect, const QString& sourceTable)
{
    auto& connection = m_session->use();
    auto& catalogue = connection.catalogue();
    if (catalogue.table(name) || catalogue.link(name)) raise(ErrorNumber::TableExists, {name});
    const auto file = m_session->openFile(readConnect(connect).database, connect);
    if (!file->catalogue().table(sourceTable)) raise(ErrorNumber::ObjectNotFound, {sourceTable});
    catalogue.addLink({name, connect, sourceTable});
    connection.forgetIfChanged();
}

void Database::BeginTrans()
{
    auto& connection = m_session->use();
    if (m_session->hasTransaction()) return;
    if (connection.inTransaction())
        raiseOfFile(ErrorNumber::Locked, connection.path()); // of another Database on the same connection
    connection.execute("BEGIN IMMEDIATE");
    m_session->transaction = true;
}

void Database::CommitTrans()
{
    auto& connection = m_session->use();
    if (!m_session->hasTransaction()) return;
    connection.execute("COMMIT");
    m_session->transaction = false;
}

void Database::Rollback()
{
    m_session->undo();
    m_session->use().forget(); // tables may be gone again
}

void Database::Close()
{
    if (!m_session->connection) return;
    CommitTrans();
    m_session->letGo();
}

QString Database::Name() const
{
    return m_session->path;
}

int Database::SchemaVersion() const
{
    return m_session->told([&] { return m_session->use().catalogue().version(); });
}

void Database::setSchemaVersion(int version)
{
    m_session->told([&] { m_session->use().catalogue().setVersion(version); });
}

} // namespace jet
