#pragma once

namespace jet {

/// A number rounded half to even. \throws Error Overflow beyond the limits.
double wholeWithin(double value, double least, double greatest);
double fourBytes(double value); ///< The same within the limits of a Long.

} // namespace jet
