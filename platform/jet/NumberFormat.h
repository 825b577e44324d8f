#pragma once

#include <QString>

namespace jet {

/// A number as the classic formats show it under German settings: "##,##0.00" makes "1.234,50" of 1234.5.
///
/// A comma before the point groups thousands, each 0 before it is a digit at least. Behind it each 0 is a
/// decimal, each # at its end one that is shown where the number has it: "0.00##" has two to four. Rounds
/// half away from zero on the decimal number that a person sees (15 significant digits); never shows "-0,00".
/// Beyond 1E+15 the exponent form.
QString formatted(double value, QStringView format);

} // namespace jet
