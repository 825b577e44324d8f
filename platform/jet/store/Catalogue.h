#pragma once

#include "platform/jet/store/Connection.h"

#include <QString>

#include <optional>
#include <vector>

namespace jet::store {

/// A table of another file that statements use like one of this.
struct Link {
    QString name;
    QString connect;
    QString sourceTable;
};

/// What a file holds: tables with their columns, links, the password, the version. Read when first asked for.
class Catalogue {
public:
    explicit Catalogue(Connection& connection) : m_connection(connection) {}

    /// A table of this file by its name in any case; null without.
    bind::TablePtr table(const QString& name) const;
    std::vector<Link> links() const;
    std::optional<Link> link(const QString& name) const;
    void addLink(const Link& link);
    void removeLink(const Link& link);
    /// What definitions are held against.
    bind::Present present() const;

    bool hasPassword() const;
    /// Whether it is the file's password.
    bool accepts(const QString& password) const;
    void setPassword(const QString& password);

    int version() const; ///< Of the schema; 0 without one.
    void setVersion(int version);

    void forget();

private:
    Connection& m_connection;
    mutable std::vector<bind::TablePtr> m_tables; // those that statements have used
    mutable std::optional<int> m_version;
};

/// A table of a file by its name in any case; null without.
bind::TablePtr findTable(Connection& connection, const QString& name, int file = 0);

} // namespace jet::store
