#include "platform/jet/TextOrder.h"

#include "platform/jet/sqlite/Collation.h"

namespace jet {

int compareTexts(const QString& left, const QString& right)
{
    const QByteArray leftBytes = left.toUtf8();
    const QByteArray rightBytes = right.toUtf8();
    return sqlite::compareTexts({leftBytes.constData(), static_cast<std::size_t>(leftBytes.size())},
                                {rightBytes.constData(), static_cast<std::size_t>(rightBytes.size())});
}

} // namespace jet
