#pragma once

#include "platform/jet/sqlite/Plan.h"

#include <QByteArray>

namespace jet {

/// The statement that gives the keys of the rows of a plan that meet a find criterion. Its parameters are those of the
/// plan and, behind them, those of the criterion.
/// \throws Error CriterionSyntax, UnknownNameInCriterion, TypeMismatch.
QByteArray criterionKeys(sqlite::Plan& plan, const sql::Shape& criterion);

/// The same for the rows of a list of keys, which is one parameter more.
QByteArray criterionKeysAmong(sqlite::Plan& plan, const sql::Shape& criterion);

/// The statement that tells whether one row meets the criterion. Its parameters are those of the criterion and, behind
/// them, the values of the row.
QByteArray criterionTest(sqlite::Plan& plan, const sql::Shape& criterion);

} // namespace jet
