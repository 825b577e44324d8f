#pragma once

#include "platform/jet/bind/Table.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace jet::sqlite {

class Connection;

/// A table of another file that statements use like one of this.
struct Link {
    QString name;
    QString connect;
    QString sourceTable;
};

/// What a file holds: tables with their columns and declared types, links, the password. Read when first asked for.
class Catalogue {
public:
    explicit Catalogue(Connection& connection) : m_connection(connection) {}

    QStringList tables() const;
    /// A table of this file by its name in any case; null without.
    bind::TablePtr table(const QString& name) const;
    std::vector<Link> links() const;
    std::optional<Link> link(const QString& name) const;
    void addLink(const Link& link);
    void removeLink(const QString& name);

    bool hasPassword() const;
    /// Whether it is the file's password.
    bool accepts(const QString& password) const;
    void setPassword(const QString& password);

    int version() const; ///< Of the schema; 0 without one.
    void setVersion(int version);

    /// Whether the table has an index of that name.
    bool hasIndex(const QString& table, const QString& index) const;

    void forget();

    /// Columns of a table in one of the connection's open files. `name` as it is stored there.
    static std::vector<Field> readColumns(Connection& connection, const QByteArray& schema, const QString& name);
    /// Name of a table of an open file as it is stored there; empty without.
    static QString storedName(Connection& connection, const QByteArray& schema, const QString& name);

private:
    void requireOwnTable();

    Connection& m_connection;
    mutable std::vector<bind::TablePtr> m_tables; // those that statements have used
    mutable std::optional<int> m_version;
};

} // namespace jet::sqlite
