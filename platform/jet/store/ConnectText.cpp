#include "platform/jet/store/ConnectText.h"

#include "platform/jet/Errors.h"

using namespace Qt::StringLiterals;

namespace jet {

ConnectText readConnect(const QString& text)
{
    ConnectText connect;
    const auto parts = text.split(u';');
    const QString type = parts.front().trimmed();
    // A text that begins with a pair has no type word; CreateDatabase is handed such ones.
    const bool isPair = type.contains(u'=');
    if (!isPair && !type.isEmpty() && type.compare(u"Access", Qt::CaseInsensitive) != 0 &&
        type.compare(u"MS Access", Qt::CaseInsensitive) != 0)
        raise(ErrorNumber::UnknownDatabaseType);
    for (const QString& part : parts) {
        const QString key = part.section(u'=', 0, 0).trimmed();
        const QString value = part.section(u'=', 1).trimmed();
        if (key.compare(u"pwd", Qt::CaseInsensitive) == 0) connect.password = value;
        if (key.compare(u"database", Qt::CaseInsensitive) == 0) connect.database = value;
    }
    return connect;
}

} // namespace jet
