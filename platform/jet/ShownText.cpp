#include "platform/jet/ShownText.h"

#include "platform/jet/NumberFormat.h"

namespace jet {

QString shownText(const Value& value, QStringView format)
{
    if (!format.isEmpty() && isNumber(value.type())) return formatted(value.toDouble(), format);
    if (value.type() == Type::Date) return value.toDate().toString(u"dd.MM.yyyy");
    return value.toText().simplified();
}

} // namespace jet
