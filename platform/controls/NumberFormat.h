#pragma once

#include <QString>

/// A number as the classic formats show it under German settings: "##,##0.00" makes "1.234,50" of 1234.5.
///
/// A comma before the point groups thousands, each 0 before it is a digit at least, the digits behind it are decimals.
/// Rounds half away from zero on the decimal number that a person sees (15 significant digits); never shows "-0,00".
QString formatted(double value, QStringView format);
