#include "core/Trim.h"

QString Trim(const QString& text)
{
    qsizetype anfang = 0;
    qsizetype ende = text.size();
    while (anfang < ende && text[anfang] == u' ')
        ++anfang;
    while (ende > anfang && text[ende - 1] == u' ')
        --ende;
    return text.mid(anfang, ende - anfang);
}
