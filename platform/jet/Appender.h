#pragma once

#include "platform/jet/Database.h"

namespace jet {

namespace bind {
struct Table;
}

/// Adds whole rows to a table as they are, a counter's number among them, which a recordset draws by itself:
/// for rows that come back, or from another file. The counter goes on behind the highest number.
class Appender {
public:
    /// \throws Error ObjectNotFound, ObjectClosed, ReadOnly.
    Appender(Database& database, const QString& table);

    const std::vector<Field>& Fields() const; ///< The columns, in table order.
    /// A row: a value for each column, converted to its type by German rules; a counter without one draws it.
    /// \throws Error ConversionFailed, Overflow, FieldTooLong with the column's name; DuplicateKey,
    /// ValueRequired, Locked, DiskFull: the row is not there then.
    void Add(const std::vector<Value>& row);

private:
    std::shared_ptr<Database::Session> m_session;
    std::shared_ptr<const bind::Table> m_table;
};

} // namespace jet
