#include "masks/Textlaenge.h"

#include "platform/system/Messages.h"

using namespace Qt::StringLiterals;

bool hatPlatz(const QString& text, const QString& als, qsizetype zeichen)
{
    if (text.size() <= zeichen) return true;
    sys::critical(u"\""_s + text + u"\" hat "_s + QString::number(text.size()) + u" Zeichen. Als "_s + als +
                  u" sind höchstens "_s + QString::number(zeichen) + u" möglich."_s);
    return false;
}
