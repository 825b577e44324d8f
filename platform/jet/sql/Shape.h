#pragma once

#include "platform/jet/Value.h"
#include "platform/jet/sql/Token.h"

#include <QString>

#include <vector>

namespace jet::sql {

/// A statement taken apart into what it is (its shape) and what it asks for this time (its parameters).
///
/// Statements that differ only in their literals have one shape and share one prepared statement: thousands
/// of stock questions differ in article, place and date alone. Not parameters, but part of the shape are the
/// literals that the meaning hangs on: TOP n, ordinals, and whole numbers of one digit, which are constants
/// of a rule (Round(Menge, 4)) rather than something asked for. The literals of IN ('a', 'b', ...) are one
/// parameter, so that lists of any length have one shape.
struct Shape {
    QString statement;
    std::vector<Token> tokens;
    /// One list per parameter: a single value but for IN lists.
    std::vector<std::vector<Value>> parameters;
    /// The statement with its parameters left out; empty for a statement that has a fault or is nothing to
    /// keep prepared (definitions, SELECT INTO).
    QString key;
};

/// \throws Error TooComplex beyond a million characters.
Shape shapeOf(const QString& statement);

} // namespace jet::sql
