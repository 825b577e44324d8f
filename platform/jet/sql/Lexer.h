#pragma once

#include "platform/jet/Value.h"
#include "platform/jet/sql/Token.h"

#include <QString>

#include <optional>
#include <vector>

namespace jet::sql {

/// The words of a statement, closed by an End token. Blanks, tabs and line breaks separate words; there are
/// no comments. Never refuses: what is no word becomes an Invalid token that says which fault it is, and an
/// unfinished text or date takes all that follows.
std::vector<Token> tokenize(QStringView statement);

/// The value that a literal token spells: a Text without its delimiters, a whole number (a floating one
/// beyond 4 bytes), a date. No value: the date does not exist or the number is out of range.
std::optional<Value> literalValue(const Token& token, QStringView statement);

/// The name that a Name or BracketName token spells.
QStringView nameOf(const Token& token, QStringView statement);

} // namespace jet::sql
