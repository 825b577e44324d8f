#include "platform/report/Place.h"

#include "platform/jet/Errors.h"

using namespace Qt::StringLiterals;

namespace report {

void Place::refuse(const QString& what) const
{
    throw jet::Error(jet::ErrorNumber::InvalidArgument, name + u": "_s + what);
}

Place formPlace(const QString& file, qint64 line)
{
    return {u"Das Berichtsformular '"_s + file + u"' ist fehlerhaft, Zeile "_s + QString::number(line)};
}

} // namespace report
