#include "core/farm/Jahresdateien.h"

#include "core/farm/Dateien.h"
#include "core/farm/FeldVorhanden.h"
#include "platform/system/Files.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool istJahr(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

/// Each once, ascending: there may be "lager.2024" beside "Lager.2024".
std::vector<int> geordnet(std::vector<int> jahre)
{
    std::sort(jahre.begin(), jahre.end());
    jahre.erase(std::unique(jahre.begin(), jahre.end()), jahre.end());
    return jahre;
}

} // namespace

std::vector<int> jahresdateien(const QString& betriebsordner)
{
    std::vector<int> jahre;
    for (const QString& name : sys::DirEntries(betriebsordner + u"\\Lager.????"_s)) {
        const QString ende = name.right(4);
        if (name.toLower().contains(u".ldb"_s) || !istJahr(ende)) continue;
        jahre.push_back(ende.toInt());
    }
    return geordnet(std::move(jahre));
}

std::vector<int> registerjahre(const QString& programmverzeichnis)
{
    std::vector<int> jahre;
    for (const QString& name : sys::Dir(stammdatei(programmverzeichnis, u"????"_s))) {
        const QString jahr = name.chopped(4).right(4);
        if (istJahr(jahr)) jahre.push_back(jahr.toInt());
    }
    return geordnet(std::move(jahre));
}

bool uebernimmtVorjahr(jet::Database& journal)
{
    if (!FeldVorhanden(journal, u"Einstellungen"_s, u"Ohnevorjahr"_s)) return true;
    const auto einstellungen = journal.OpenRecordset(u"SELECT * FROM EINSTELLUNGEN"_s, jet::Kind::Snapshot);
    return einstellungen->Eof() || !(*einstellungen)[u"OhneVorjahr"].toBool();
}
