#pragma once

#include "platform/jet/rows/Plan.h"

namespace jet {

/// The rows of a plan that meet a find criterion. \throws Error CriterionSyntax, UnknownNameInCriterion,
/// TypeMismatch.
std::shared_ptr<store::Filter> filterOf(Plan& plan, const sql::Shape& criterion);

/// Whether a row of the plan's columns meets it, wherever its values come from. Throws the same.
std::shared_ptr<store::Test> testOf(Plan& plan, store::Connection& connection, const sql::Shape& criterion);

} // namespace jet
