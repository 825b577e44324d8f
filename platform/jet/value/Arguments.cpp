#include "platform/jet/value/Arguments.h"

#include "platform/jet/Conversion.h"
#include "platform/jet/Errors.h"
#include "platform/jet/Rounding.h"

#include <algorithm>

namespace jet {

QString Arguments::text(int index) const
{
    const auto bytes = utf8(index);
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

bool Arguments::anyNull() const
{
    for (int i = 0; i < count(); ++i)
        if (isNull(i)) return true;
    return false;
}

std::optional<double> Arguments::readNumber(int index) const
{
    return isText(index) ? jet::readNumber(text(index)) : number(index);
}

int Arguments::place(int index, int least) const
{
    const double value = isWhole(index) ? number(index) : Round(number(index), 0); // whole as nearly always
    if (!(value >= least)) raise(ErrorNumber::InvalidArgument);
    return static_cast<int>(std::min(value, 1e9));
}

} // namespace jet
