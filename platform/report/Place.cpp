#include "platform/report/Place.h"

#include "platform/jet/Errors.h"

using namespace Qt::StringLiterals;

namespace report {

void Place::refuse(const QString& what) const
{
    throw jet::Error(jet::ErrorNumber::InvalidArgument, name + u": "_s + what);
}

} // namespace report
