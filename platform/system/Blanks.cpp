#include "platform/system/Blanks.h"

namespace sys {

QString trimBlanks(const QString& text)
{
    qsizetype from = 0;
    qsizetype to = text.size();
    while (from < to && text[from] == u' ')
        ++from;
    while (to > from && text[to - 1] == u' ')
        --to;
    return text.mid(from, to - from);
}

} // namespace sys
