#pragma once

#include <QString>

namespace jet {

/// A text as a statement or a criterion has it: "O'Neill" becomes 'O''Neill'.
QString textLiteral(const QString& text);

} // namespace jet
