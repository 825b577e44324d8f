#include "platform/system/FileName.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace sys {

QString fileNameFor(const QString& title)
{
    static constexpr QStringView Forbidden = u"/\\:*?\"<>|";
    QString name = title;
    std::replace_if(
        name.begin(), name.end(), [](QChar letter) { return letter < u' ' || Forbidden.contains(letter); },
        u'-');
    return name;
}

} // namespace sys
