#pragma once

#include "platform/jet/sql/TokenCursor.h"
#include "platform/jet/sql/Tree.h"

namespace jet::sql {

/// Reads a SELECT statement behind its first word, up to a semicolon or the end.
Select parseSelect(TokenCursor& cursor);

} // namespace jet::sql
