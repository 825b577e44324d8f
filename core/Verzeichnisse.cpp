#include "core/Verzeichnisse.h"

#include "platform/system/Files.h"
#include "platform/system/Settings.h"

using namespace Qt::StringLiterals;

namespace {

const QString Fehlt = u"x"_s; ///< What stands for a missing setting, never the name of a folder here.

} // namespace

QString datenverzeichnis()
{
    return sys::GetSetting(u"Datenverzeichnis"_s, u"Verzeichnisname"_s, Fehlt);
}

QString ProgrammVerzeichnis()
{
    const QString gemeinsam = sys::GetSetting(u"Gemeinsame"_s, u"Verzeichnisname"_s, Fehlt);
    return gemeinsam != Fehlt && sys::Exist(gemeinsam) ? gemeinsam : datenverzeichnis();
}
