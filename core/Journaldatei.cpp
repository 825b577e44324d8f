#include "core/Journaldatei.h"

#include "core/Modulzustand.h"
#include "core/Verzeichnisse.h"
#include "platform/jet/Engine.h"
#include "platform/system/Files.h"

#include <zablager/FileError.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString stamm()
{
    return datenverzeichnis() + u"\\B"_s + modulzustand().Betriebsnummer + u"\\Lager."_s;
}

bool istJahr(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

} // namespace

QString Journaldatei(int jahr)
{
    return stamm() + QString::number(jahr).rightJustified(4, u'0');
}

std::vector<int> journaljahre()
{
    std::vector<int> jahre;
    for (const QString& name : sys::Dir(stamm() + u"????"_s)) {
        const QString ende = name.right(4);
        if (name.toLower().contains(u".ldb"_s) || !istJahr(ende)) continue;
        jahre.push_back(ende.toInt());
    }
    std::sort(jahre.begin(), jahre.end());
    jahre.erase(std::unique(jahre.begin(), jahre.end()), jahre.end()); // "lager.2024" beside "Lager.2024"
    return jahre;
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
    sys::CopyWhereMissing(ProgrammVerzeichnis() + u"\\Lager.vorlage"_s, datei);
}
