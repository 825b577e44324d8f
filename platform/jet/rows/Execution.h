#pragma once

#include "platform/jet/sql/Shape.h"
#include "platform/jet/store/Session.h"

namespace jet {

/// Executes one action statement, as a whole or not at all. \returns the number of rows affected.
/// \throws Error CannotExecuteSelect and whatever is wrong with the statement.
qint64 execute(Database::Session& session, const sql::Shape& shape);

} // namespace jet
