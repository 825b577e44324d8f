#include "core/Journaldatei.h"

#include "core/Modulzustand.h"
#include "core/Verzeichnisse.h"
#include "core/farm/Jahresdateien.h"
#include "platform/jet/Engine.h"
#include "platform/jet/TemplateCopy.h"

#include <zablager/FileError.h>

using namespace Qt::StringLiterals;

namespace {

QString betriebsordner()
{
    return datenverzeichnis() + u"\\B"_s + modulzustand().Betriebsnummer;
}

} // namespace

QString Journaldatei(int jahr)
{
    return betriebsordner() + u"\\Lager."_s + QString::number(jahr).rightJustified(4, u'0');
}

std::vector<int> journaljahre()
{
    return jahresdateien(betriebsordner());
}

std::unique_ptr<jet::Database> oeffneJournal(int jahr)
{
    return jet::engine().OpenDatabase(Journaldatei(jahr), u";pwd=quenlor"_s);
}

void stelleJournalBereit(const QString& datei)
{
    if (datei.isEmpty())
        throw sys::FileError(sys::FileErrorNumber::FileNotFound,
                             u"Es ist keine Lagerdatei angegeben: Datenverzeichnis ist leer."_s);
    jet::copyWhereMissing(ProgrammVerzeichnis() + u"\\Lager.vorlage"_s, modulzustand().Lagerpasswort, datei);
}
