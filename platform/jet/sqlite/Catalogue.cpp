#include "platform/jet/sqlite/Catalogue.h"

#include "platform/jet/sqlite/ColumnType.h"
#include "platform/jet/sqlite/Connection.h"
#include "platform/jet/sqlite/Names.h"

#include <QCryptographicHash>
#include <QRandomGenerator>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace jet::sqlite {

namespace {

QByteArray saltedHash(const QByteArray& salt, const QString& password)
{
    return QCryptographicHash::hash(salt + password.toUtf8(), QCryptographicHash::Sha256).toHex();
}

QStringList tableNames(Connection& connection, const QByteArray& schema)
{
    QStringList names;
    Statement statement(connection, "SELECT name FROM " + schema + ".sqlite_master WHERE type='table' ORDER BY name");
    Statement::Run run(statement);
    while (run.step()) {
        const QString name = QString::fromUtf8(run.text(0));
        if (!name.startsWith(u"sqlite_") && !name.startsWith(u"MSys", Qt::CaseInsensitive)) names.append(name);
    }
    return names;
}

bool hasOwnTable(Connection& connection)
{
    Statement statement(connection, "SELECT 1 FROM sqlite_master WHERE type='table' AND name=?");
    Statement::Run run(statement);
    run.bindText(0, CatalogueTable);
    return run.step();
}

/// Rows of the catalogue table: (kind, name, first, second).
std::vector<std::vector<QString>> ownRows(Connection& connection, const QByteArray& kind)
{
    std::vector<std::vector<QString>> rows;
    if (!hasOwnTable(connection)) return rows;
    Statement statement(connection, QByteArray("SELECT name,first,second FROM ") + CatalogueTable + " WHERE kind=?");
    Statement::Run run(statement);
    run.bindText(0, kind);
    while (run.step())
        rows.push_back(
            {QString::fromUtf8(run.text(0)), QString::fromUtf8(run.text(1)), QString::fromUtf8(run.text(2))});
    return rows;
}

void addOwnRow(Connection& connection, const std::vector<QByteArray>& cells)
{
    Statement statement(connection, QByteArray("INSERT INTO ") + CatalogueTable + " VALUES(?,?,?,?)");
    Statement::Run run(statement);
    for (std::size_t i = 0; i < cells.size(); ++i)
        run.bindText(static_cast<int>(i), cells[i]);
    run.step();
}

} // namespace

QStringList Catalogue::tables() const
{
    return tableNames(m_connection, "main");
}

bind::TablePtr Catalogue::table(const QString& name) const
{
    for (const auto& known : m_tables)
        if (bind::sameName(known->name, name)) return known;
    const QString stored = storedName(m_connection, "main", name);
    if (stored.isEmpty()) return nullptr;
    auto table = std::make_shared<bind::Table>();
    table->name = stored;
    table->columns = readColumns(m_connection, "main", stored);
    m_tables.push_back(table);
    return table;
}

QString Catalogue::storedName(Connection& connection, const QByteArray& schema, const QString& name)
{
    for (const QString& stored : tableNames(connection, schema))
        if (bind::sameName(stored, name)) return stored;
    return {};
}

std::vector<Field> Catalogue::readColumns(Connection& connection, const QByteArray& schema, const QString& name)
{
    std::vector<Field> columns;
    Statement statement(connection, "PRAGMA " + schema + ".table_info(" + quoted(name) + ')');
    Statement::Run run(statement);
    while (run.step()) {
        const bool key = run.whole(5) == 1;
        columns.push_back(readColumnType(QString::fromUtf8(run.text(1)), QString::fromUtf8(run.text(2)), key));
    }
    return columns;
}

std::vector<Link> Catalogue::links() const
{
    std::vector<Link> links;
    for (const auto& row : ownRows(m_connection, "link"))
        links.push_back({row[0], row[1], row[2]});
    return links;
}

std::optional<Link> Catalogue::link(const QString& name) const
{
    for (const Link& link : links())
        if (bind::sameName(link.name, name)) return link;
    return {};
}

void Catalogue::addLink(const Link& link)
{
    WriteScope scope(m_connection);
    requireOwnTable();
    addOwnRow(m_connection, {"link", link.name.toUtf8(), link.connect.toUtf8(), link.sourceTable.toUtf8()});
    scope.commit();
}

void Catalogue::removeLink(const QString& name)
{
    const auto stored = link(name);
    if (!stored) return;
    Statement statement(m_connection, QByteArray("DELETE FROM ") + CatalogueTable + " WHERE kind='link' AND name=?");
    Statement::Run run(statement);
    run.bindText(0, stored->name.toUtf8());
    run.step();
}

bool Catalogue::hasPassword() const
{
    return !ownRows(m_connection, "password").empty();
}

bool Catalogue::accepts(const QString& password) const
{
    const auto rows = ownRows(m_connection, "password");
    return !rows.empty() && saltedHash(rows.front()[1].toUtf8(), password) == rows.front()[2].toUtf8();
}

void Catalogue::setPassword(const QString& password)
{
    QByteArray salt;
    for (int i = 0; i < 2; ++i)
        salt += QByteArray::number(QRandomGenerator::system()->generate64(), 16);
    WriteScope scope(m_connection);
    requireOwnTable();
    addOwnRow(m_connection, {"password", "", salt, saltedHash(salt, password)});
    scope.commit();
}

int Catalogue::version() const
{
    if (!m_version || m_connection.inTransaction()) {
        const auto rows = ownRows(m_connection, "version");
        m_version = rows.empty() ? 0 : rows.front()[1].toInt();
    }
    return *m_version;
}

void Catalogue::setVersion(int version)
{
    WriteScope scope(m_connection);
    requireOwnTable();
    m_connection.execute(QByteArray("DELETE FROM ") + CatalogueTable + " WHERE kind='version'");
    addOwnRow(m_connection, {"version", "", QByteArray::number(version), ""});
    scope.commit();
    m_version.reset();
}

bool Catalogue::hasIndex(const QString& table, const QString& index) const
{
    Statement statement(m_connection, "SELECT name FROM sqlite_master WHERE type='index'");
    Statement::Run run(statement);
    while (run.step())
        if (bind::sameName(QString::fromUtf8(run.text(0)), indexName(table, index))) return true;
    return false;
}

void Catalogue::forget()
{
    m_tables.clear();
    m_version.reset();
}

void Catalogue::requireOwnTable()
{
    m_connection.execute(QByteArray("CREATE TABLE IF NOT EXISTS ") + CatalogueTable +
                         "(kind TEXT,name TEXT,first TEXT,second TEXT)");
}

} // namespace jet::sqlite
