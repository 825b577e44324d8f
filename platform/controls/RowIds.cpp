#include "platform/controls/RowIds.h"

#include "platform/controls/DataControl.h"

using namespace Qt::StringLiterals;

std::optional<qint64> idAt(const DataControl& data, qsizetype position)
{
    if (position < 0 || position >= data.RecordCount()) return {};
    const auto row = data.Recordset().RowAt(position);
    if (!row) return {};
    const auto& fields = data.Recordset().Fields();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].name.compare(u"ID", Qt::CaseInsensitive) == 0) return (*row)[i].toLong();
    }
    return {};
}

std::optional<qint64> currentId(const DataControl& data)
{
    return idAt(data, data.AbsolutePosition());
}

void findId(DataControl& data, std::optional<qint64> id)
{
    if (id) data.FindFirst(u"ID = "_s + QString::number(*id));
}
