#pragma once

#include "platform/jet/bind/SelectBinder.h"
#include "platform/jet/sql/Shape.h"
#include "platform/jet/sqlite/Attachments.h"

#include <QByteArray>
#include <QHash>

#include <memory>
#include <optional>
#include <vector>

namespace jet::sqlite {

/// What a statement has become: texts for SQLite and what is known of its result. Of one shape, whatever its parameters.
struct Plan {
    std::unique_ptr<Attachments> attachments; ///< Null when no other file takes part.

    // a SELECT without INTO
    std::optional<bind::BoundSelect> select;
    std::vector<Field> fields;
    QByteArray rows; ///< All values.
    QByteArray keys; ///< The keys of the rows; empty when the rows have none.
    QByteArray row;  ///< One row by its key, which is the parameter behind those of the statement.
    int parameters = 0;
    QHash<QString, QByteArray> criteria; ///< Texts of find criteria by the keys of their shapes.

    // everything else
    QByteArray definition; ///< Run first, without parameters.
    QByteArray action;
    bool changesSchema = false;
    QString droppedLink;
};

/// The plan of a statement, from the connection's cache where it has one.
/// \throws Error whatever is wrong with the statement.
std::shared_ptr<Plan> planOf(Connection& connection, const sql::Shape& shape, const OpenFile& open);

} // namespace jet::sqlite
