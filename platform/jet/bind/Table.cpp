#include "platform/jet/bind/Table.h"

namespace jet::bind {

int Table::find(QStringView column) const
{
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (sameName(columns[i].name, column)) return static_cast<int>(i);
    return -1;
}

bool sameName(QStringView left, QStringView right)
{
    return left.size() == right.size() && left.compare(right, Qt::CaseInsensitive) == 0;
}

} // namespace jet::bind
