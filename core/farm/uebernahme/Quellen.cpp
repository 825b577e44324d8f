#include "core/farm/uebernahme/Quellen.h"

#include "core/farm/Betriebe.h"
#include "platform/system/Files.h"
#include "platform/system/Path.h"

#include <zablager/FileError.h>

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void fehlt(const QString& text)
{
    throw sys::FileError(sys::FileErrorNumber::FileNotFound, text);
}

/// The files of a folder that are called so, in any case.
QStringList dateienIn(const QString& ordner, const QString& muster)
{
    const QRegularExpression name(u"^("_s + muster + u")$"_s, QRegularExpression::CaseInsensitiveOption);
    QStringList pfade;
    const QDir verzeichnis(sys::localPath(ordner));
    for (const QString& datei : verzeichnis.entryList(QDir::Files, QDir::Name))
        if (name.match(datei).hasMatch()) pfade.append(verzeichnis.filePath(datei));
    return pfade;
}

} // namespace

QStringList altdateien(const Suche& suche)
{
    const QFileInfo alt(suche.alt);
    if (!alt.exists()) fehlt(u"'"_s + suche.alt + u"' gibt es nicht."_s);
    if (!alt.isDir()) return {suche.alt};
    const QString ordner = betriebsordner(suche.alt, suche.betrieb);
    if (!QFileInfo(sys::localPath(ordner)).isDir()) {
        const QStringList andere = betriebe(suche.alt);
        fehlt(u"In '"_s + suche.alt + u"' gibt es keinen Ordner B"_s + suche.betrieb +
              (andere.isEmpty() ? u"."_s : u"; es gibt B"_s + andere.join(u", B"_s) + u'.'));
    }
    const auto neben = [&](const QString& gewaehlt, const QString& name) {
        return gewaehlt.isEmpty() ? alt.absoluteFilePath() + u"/../"_s + name : gewaehlt;
    };
    return dateienIn(suche.alt, u"Grundstamm\\.mdb"_s) +
           dateienIn(neben(suche.anlagen, u"anlagen"_s), u"Anlagen\\.mdb"_s) +
           dateienIn(neben(suche.programm, u"programm"_s), u"ZABStammdaten_\\d{4}\\.mdb"_s) +
           dateienIn(ordner, u"Lager\\.\\d{4}"_s);
}

std::optional<Dateiart> dateiart(const oldfile::File::Contents& inhalt)
{
    const auto hat = [&](QStringView name) {
        return std::ranges::any_of(inhalt.tables, [&](const oldfile::Table& tabelle) {
            return tabelle.name.compare(name, Qt::CaseInsensitive) == 0;
        });
    };
    if (hat(u"LAGERJOURNAL")) return Dateiart::Lager;
    if (hat(u"HANDLER")) return Dateiart::Grundstamm;
    if (hat(u"Objekte")) return Dateiart::Anlagen;
    if (hat(u"REGISTER")) return Dateiart::ZABStammdaten;
    return {};
}

std::optional<int> jahrImNamen(const QString& pfad)
{
    static const QRegularExpression form(u"^(Lager\\.|ZABStammdaten_)(\\d{4})(\\.mdb)?$"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    const auto fund = form.match(QFileInfo(pfad).fileName());
    if (!fund.hasMatch()) return {};
    return fund.captured(2).toInt();
}
