#include "platform/controls/RowIds.h"

#include "platform/controls/DataControl.h"

using namespace Qt::StringLiterals;

std::optional<qint64> idAt(const DataControl& data, qsizetype position)
{
    if (position < 0 || position >= data.RecordCount()) return {};
    const auto row = data.Recordset().RowAt(position);
    const auto place = data.Recordset().PlaceOf(u"ID");
    if (!row || !place) return {};
    return (*row)[*place].toLong();
}

std::optional<qint64> currentId(const DataControl& data)
{
    return idAt(data, data.AbsolutePosition());
}

void findId(DataControl& data, std::optional<qint64> id)
{
    if (id) data.FindFirst(u"ID = "_s + QString::number(*id));
}
