#include "platform/jet/value/WholeNumber.h"

#include "platform/jet/Errors.h"
#include "platform/jet/Rounding.h"

#include <limits>

namespace jet {

double wholeWithin(double value, double least, double greatest)
{
    const double whole = Round(value, 0);
    if (!(whole >= least && whole <= greatest)) raise(ErrorNumber::Overflow);
    return whole;
}

double fourBytes(double value)
{
    return wholeWithin(value, std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max());
}

} // namespace jet
