#include "platform/jet/TextOrder.h"

#include "platform/jet/value/Collation.h"

namespace jet {

int compareTexts(const QString& left, const QString& right)
{
    const QByteArray leftBytes = left.toUtf8();
    const QByteArray rightBytes = right.toUtf8();
    return compareTexts(
        std::string_view{leftBytes.constData(), static_cast<std::size_t>(leftBytes.size())},
        std::string_view{rightBytes.constData(), static_cast<std::size_t>(rightBytes.size())});
}

} // namespace jet
