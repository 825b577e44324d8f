#pragma once

#include <zablager/DatabaseError.h>

#include <QString>

struct sqlite3;
struct sqlite3_context;

namespace jet::sqlite {

/// Makes an Error the failure of the statement that called one of our functions.
void resultError(sqlite3_context* context, const Error& error);

/// Throws the refusal that stands behind the last failure of a connection to that file.
[[noreturn]] void raiseFailure(sqlite3* connection, const QString& path);

} // namespace jet::sqlite
