#pragma once

#include "platform/jet/sql/TokenCursor.h"
#include "platform/jet/sql/Tree.h"

#include <optional>

namespace jet::sql {

/// Reads CREATE TABLE, CREATE INDEX, ALTER TABLE and DROP. No value: the statement begins with another word.
std::optional<Statement> parseDefinition(TokenCursor& cursor);

} // namespace jet::sql
