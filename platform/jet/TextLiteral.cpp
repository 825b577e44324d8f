#include "platform/jet/TextLiteral.h"

using namespace Qt::StringLiterals;

namespace jet {

QString textLiteral(const QString& text)
{
    return u'\'' + QString(text).replace(u'\'', u"''"_s) + u'\'';
}

} // namespace jet
