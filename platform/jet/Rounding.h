#pragma once

namespace jet {

/// The engine's Round: half to even, on the decimal number that a person sees (15 significant digits).
///
/// Round(2.445, 2) is 2.44 and Round(2.675, 2) is 2.68, although the binary numbers lie on the other side of
/// the half. Never returns -0. A number too large to have such decimals comes back as it is. \param decimals
/// 0 to 22; the SQL function refuses anything below 0 with InvalidArgument.
double Round(double value, int decimals);

} // namespace jet
