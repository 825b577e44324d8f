#include "platform/system/Clock.h"

#include "platform/system/Surroundings.h"

namespace sys {

QDate heute()
{
    const auto& day = surroundings().day;
    return day ? *day : QDate::currentDate();
}

void stelleUhr(std::optional<QDate> tag)
{
    surroundings().day = tag;
}

} // namespace sys
