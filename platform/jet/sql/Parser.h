#pragma once

#include "platform/jet/sql/Shape.h"
#include "platform/jet/sql/Tree.h"

namespace jet::sql {

/// Reads one statement. \throws Error with the number of the clause at fault, its text and its place.
Statement parse(const Shape& shape);

/// Reads a find criterion: an expression, what stands after a WHERE. \throws Error CriterionSyntax.
ExpressionPtr parseCriterion(const Shape& shape);

} // namespace jet::sql
