#include "core/Verzeichnisse.h"

#include "platform/system/Files.h"
#include "platform/system/Settings.h"

using namespace Qt::StringLiterals;

QString datenverzeichnis()
{
    return sys::GetSetting(u"Datenverzeichnis"_s, u"Verzeichnisname"_s, u"x"_s);
}

QString ProgrammVerzeichnis()
{
    const QString gemeinsam = sys::GetSetting(u"Gemeinsame"_s, u"Verzeichnisname"_s, u"x"_s);
    return sys::Exist(gemeinsam) ? gemeinsam : datenverzeichnis();
}
