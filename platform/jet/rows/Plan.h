#pragma once

#include "platform/jet/rows/OtherFiles.h"
#include "platform/jet/sql/Shape.h"

#include <QHash>

#include <memory>
#include <optional>
#include <vector>

namespace jet {

/// What a statement has become: bound, and handed to its store. Of one shape, whatever its parameters.
struct Plan {
    std::unique_ptr<OtherFiles> others; ///< Null when no other file takes part.
    int parameters = 0;

    // a SELECT
    std::optional<bind::BoundSelect> select;
    std::vector<Field> fields;
    std::unique_ptr<store::Query> query;
    QHash<QString, std::shared_ptr<store::Filter>>
        filters; ///< Of find criteria, by the keys of their shapes.
    QHash<QString, std::shared_ptr<store::Test>> tests;

    // everything else
    std::unique_ptr<store::Action> action;
    std::optional<bind::BoundDefinition> definition; ///< Done first.
    int file = 0;                                    ///< That the definition belongs to.
    std::optional<store::Link> droppedLink;
    /// Of SELECT INTO: where the new table belongs to another store. The rows of the query go there one by
    /// one.
    std::shared_ptr<OpenFile> elsewhere;

    bool isSelect() const { return query && !definition; }
    bool changesTables() const { return definition || droppedLink; }
    /// Whether each row can be found again by its key.
    bool isKeyed() const { return isSelect() && select->isKeyed() && !others; }
};

/// The plan of a statement, from the file's cache where it has one.
/// \throws Error whatever is wrong with the statement.
std::shared_ptr<Plan> planOf(OpenFile& file, const sql::Shape& shape, const OpenOther& open);

} // namespace jet
