#include "platform/jet/Database.h"

#include "platform/jet/Errors.h"
#include "platform/jet/rows/Execution.h"
#include "platform/jet/rows/Rows.h"
#include "platform/jet/store/ConnectText.h"
#include "platform/jet/store/Session.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace jet {

namespace {

/// A single word is the name of a table, and so is a text with blanks that a table of the file is called by.
bool isTableName(const QString& source, const sql::Shape& shape, const store::Catalogue& catalogue)
{
    if (shape.tokens.size() == 2 && shape.tokens.front().kind == sql::TokenKind::Name) return true;
    if (source.startsWith(u"SELECT", Qt::CaseInsensitive)) return false;
    return catalogue.table(source) || catalogue.link(source);
}

} // namespace

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
    return m_session->told(
        [&] { return m_session->withPresentSchema([&] { return execute(*m_session, shape); }); });
}

std::unique_ptr<Recordset> Database::OpenRecordset(const QString& source, Kind kind)
{
    return m_session->told([&] { return std::unique_ptr<Recordset>(new Recordset(rowsOf(source, kind))); });
}

std::unique_ptr<Recordset::Rows> Database::rowsOf(const QString& source, Kind kind) const
{
    auto shape = sql::shapeOf(source);
    if (isTableName(source, shape, m_session->use().catalogue()))
        shape = sql::shapeOf(u"SELECT * FROM ["_s + source + u"]"_s);
    const auto open = [&] {
        auto plan = planOf(m_session->use(), shape, m_session->openOther);
        if (!plan->isSelect()) raise(ErrorNumber::UnknownStatement);
        return openRows(m_session, std::move(plan), shape, kind);
    };
    auto rows = m_session->withPresentSchema(open);
    if (m_session->use().forgetIfNoticed())
        rows = open(); // what was read may lack a column that is there now
    return rows;
}

std::vector<TableDef> Database::TableDefs() const
{
    return m_session->told([&] {
        auto& file = m_session->use();
        file.forgetIfChanged();
        std::vector<TableDef> tables;
        for (const QString& name : file.connection().tables())
            tables.push_back({name, file.catalogue().table(name)->columns, {}, {}});
        for (const auto& link : file.catalogue().links())
            tables.push_back({link.name, {}, link.connect, link.sourceTable});
        return tables;
    });
}

bool Database::HasIndex(const QString& table, const QString& index) const
{
    return m_session->told([&] {
        auto& file = m_session->use();
        const auto found = file.catalogue().table(table);
        return found && file.connection().hasIndex(found->name, index);
    });
}

void Database::CreateTableDef(const QString& name, const QString& connect, const QString& sourceTable)
{
    auto& file = m_session->use();
    auto& catalogue = file.catalogue();
    if (catalogue.table(name) || catalogue.link(name)) raise(ErrorNumber::TableExists, {name});
    const auto other = m_session->openOther(readConnect(connect).database, connect);
    if (!other->catalogue().table(sourceTable)) raise(ErrorNumber::ObjectNotFound, {sourceTable});
    catalogue.addLink({name, connect, sourceTable});
    file.forgetIfChanged();
}

void Database::BeginTrans()
{
    auto& connection = m_session->use().connection();
    if (m_session->hasTransaction()) return;
    if (connection.inTransaction())
        raiseOfFile(ErrorNumber::Locked, connection.path()); // of another Database on the same connection
    connection.begin(store::Connection::Lock::AtOnce);
    m_session->transaction = true;
}

void Database::CommitTrans()
{
    auto& connection = m_session->use().connection();
    if (!m_session->hasTransaction()) return;
    connection.commit();
    m_session->transaction = false;
}

void Database::Rollback()
{
    m_session->undo();
    m_session->use().forget(); // tables may be gone again
}

void Database::Close()
{
    if (!m_session->file) return;
    CommitTrans();
    m_session->letGo();
}

QStringList Database::Faults() const
{
    return m_session->use().connection().faults();
}

bool Database::Updatable() const
{
    return m_session->use().connection().isWritable();
}

QString Database::Name() const
{
    return m_session->path;
}

ChangeMark Database::Mark() const
{
    return m_session->told([&] {
        return ChangeMark{m_session->file.get(), m_session->use().connection().changeCounters()};
    });
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
