#include "core/Journaldatei.h"

#include "core/Modulzustand.h"
#include "core/Verzeichnisse.h"
#include "core/farm/Dateien.h"
#include "core/farm/Jahresdateien.h"

#include <zablager/FileError.h>

using namespace Qt::StringLiterals;

namespace {

QString eigenerOrdner()
{
    return betriebsordner(datenverzeichnis(), modulzustand().Betriebsnummer);
}

} // namespace

QString Journaldatei(int jahr)
{
    return journaldatei(eigenerOrdner(), jahr);
}

std::vector<int> journaljahre()
{
    return jahresdateien(eigenerOrdner());
}

std::unique_ptr<jet::Database> oeffneJournal(int jahr)
{
    return oeffne(Dateiart::Lager, Journaldatei(jahr));
}

std::unique_ptr<jet::Database> oeffneJournaldatei()
{
    return oeffne(Dateiart::Lager, modulzustand().Lagerdatei, modulzustand().Lagerpasswort);
}

void stelleJournalBereit(const QString& datei)
{
    if (datei.isEmpty())
        throw sys::FileError(sys::FileErrorNumber::FileNotFound,
                             u"Es ist keine Lagerdatei angegeben: Datenverzeichnis ist leer."_s);
    kopiereVorlage(vorlagedatei(ProgrammVerzeichnis()), modulzustand().Lagerpasswort, datei);
}
