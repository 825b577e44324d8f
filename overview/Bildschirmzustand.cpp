#include "overview/Bildschirmzustand.h"

#include "platform/system/Settings.h"

using namespace Qt::StringLiterals;

namespace bildschirmzustand {

QString text(const QString& name)
{
    return sys::GetSetting(Abschnitt, name);
}

bool angehakt(const QString& name)
{
    return sys::GetSetting(Abschnitt, name, u"0"_s).toInt() != 0;
}

void merke(const QString& name, const QString& text)
{
    sys::SaveSetting(Abschnitt, name, text);
}

void merke(const QString& name, bool angehakt)
{
    sys::SaveSetting(Abschnitt, name, angehakt ? u"1"_s : u"0"_s);
}

} // namespace bildschirmzustand
