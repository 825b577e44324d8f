#include "core/farm/Sicherung.h"

#include "core/farm/Dateien.h"
#include "platform/jet/Engine.h"
#include "platform/system/CaughtError.h"
#include "platform/system/Clock.h"
#include "platform/system/Files.h"
#include "platform/system/Path.h"
#include "platform/system/Status.h"

#include <zablager/FileError.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScopeGuard>

#include <algorithm>
#include <optional>
#include <set>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 OhneWort = 1000; // ms that a copy may take without saying how far it is

/// Where the copies of a file lie, and how their names begin.
struct Ablage {
    QString ordner;
    QString stamm;
};

/// No value: it is no file of a farm, such as one that is being built under another name.
std::optional<Ablage> ablage(const QString& datei)
{
    static const QRegularExpression form(
        u"^(?:Lager\\.(\\d{4})|(Grundstamm|Anlagen)\\.mdb|ZABStammdaten_(\\d{4})\\.mdb|Lager\\.(vorlage))$"_s,
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression betrieb(u"^B\\d*$"_s, QRegularExpression::CaseInsensitiveOption);
    const QFileInfo info(sys::localPath(datei));
    const auto treffer = form.match(info.fileName());
    if (!treffer.hasMatch()) return {};
    QDir ordner = info.dir();
    const QString nummer = ordner.dirName();
    const bool imBetrieb = !treffer.captured(1).isEmpty();
    if (imBetrieb && (!betrieb.match(nummer).hasMatch() || !ordner.cdUp())) return {};
    if (!ordner.cdUp()) return {};
    const QString sicherung = ordner.filePath(u"sicherung"_s);
    if (imBetrieb) return Ablage{sicherung + u'/' + nummer, u"Lager-"_s + treffer.captured(1)};
    if (treffer.hasCaptured(2)) return Ablage{sicherung, treffer.captured(2)};
    if (treffer.hasCaptured(3)) return Ablage{sicherung, u"ZABStammdaten-"_s + treffer.captured(3)};
    return Ablage{sicherung, u"Vorlage"_s};
}

/// Files of exactly the names that this program gives, the oldest first.
std::vector<Sicherung> sicherungen(const Ablage& ablage)
{
    const QRegularExpression form(u"^"_s + ablage.stamm + u"_(\\d{4}-\\d\\d-\\d\\d_\\d{6})\\.mdb$"_s,
                                  QRegularExpression::CaseInsensitiveOption);
    std::vector<Sicherung> alle;
    for (const QString& name : QDir(ablage.ordner).entryList(QDir::Files, QDir::Name))
        if (const auto treffer = form.match(name); treffer.hasMatch())
            if (const auto stand = QDateTime::fromString(treffer.captured(1), u"yyyy-MM-dd_HHmmss"_s);
                stand.isValid())
                alle.push_back({ablage.ordner + u'/' + name, stand});
    std::ranges::stable_sort(alle, {}, &Sicherung::stand);
    return alle;
}

/// Whether it belongs to one of the last periods, of which nothing newer has been seen.
template <class Zeitraum>
bool istNeueste(std::set<Zeitraum>& gesehen, std::size_t hoechstens, const Zeitraum& dieser)
{
    if (gesehen.size() == hoechstens || gesehen.contains(dieser)) return false;
    gesehen.insert(dieser);
    return true;
}

void raeumeAuf(const Ablage& ablage)
{
    std::set<QDate> tage;
    std::set<std::pair<int, int>> wochen;
    std::set<std::pair<int, int>> monate;
    auto alle = sicherungen(ablage);
    std::ranges::reverse(alle);
    for (const Sicherung& eine : alle) {
        const QDate tag = eine.stand.date();
        int wochenjahr = 0;
        const int woche = tag.weekNumber(&wochenjahr);
        const bool neuesteDerWoche = istNeueste(wochen, 4, {wochenjahr, woche});
        const bool neuesteDesMonats = istNeueste(monate, 12, {tag.year(), tag.month()});
        const bool unterDenTagen = istNeueste(tage, 7, tag) || tage.contains(tag);
        if (!neuesteDerWoche && !neuesteDesMonats && !unterDenTagen) jet::engine().DeleteDatabase(eine.datei);
    }
}

/// Of this second, or of the next one of which there is none.
QString neuerName(const Ablage& ablage)
{
    for (QDateTime stand(sys::heute(), QTime::currentTime());; stand = stand.addSecs(1)) {
        QString name =
            ablage.ordner + u'/' + ablage.stamm + stand.toString(u"'_'yyyy-MM-dd_HHmmss"_s) + u".mdb"_s;
        if (!QFile::exists(name)) return name;
    }
}

QString sichere(const QString& datei, const Ablage& ablage)
{
    if (!QDir().mkpath(ablage.ordner))
        throw sys::FileError(sys::FileErrorNumber::PathAccess,
                             u"Das Verzeichnis '"_s + ablage.ordner + u"' lässt sich nicht anlegen."_s);
    QString ziel = neuerName(ablage);
    const QString name = QFileInfo(datei).fileName();
    const QString entwurf = sys::draftName(ziel);
    const auto weg = qScopeGuard([&] { QFile::remove(entwurf); });
    QElapsedTimer dauer;
    dauer.start();
    const auto sageWieWeit = [&](double teil) {
        if (dauer.elapsed() > OhneWort)
            sys::showStatus(u"%1 wird gesichert: %2 %"_s.arg(name).arg(int(100 * teil)));
    };
    try {
        jet::engine().CopyDatabase(datei, entwurf, sageWieWeit);
    } catch (const jet::Error& fehler) { // the user knows the copy, not its draft
        throw jet::Error(fehler.number(), QString(fehler.text()).replace(entwurf, ziel));
    }
    if (dauer.elapsed() > OhneWort) sys::showStatus({});
    if (!QFile::rename(entwurf, ziel))
        throw sys::FileError(sys::FileErrorNumber::PathAccess,
                             u"'"_s + ziel + u"' lässt sich nicht anlegen."_s);
    raeumeAuf(ablage);
    return ziel;
}

} // namespace

QString sichere(const QString& datei)
{
    const auto wo = ablage(datei);
    return wo ? sichere(datei, *wo) : QString();
}

void sichereVorAenderung(const QString& datei) noexcept
{
    try {
        const auto wo = ablage(datei);
        if (!wo) return;
        const auto alle = sicherungen(*wo);
        if (!alle.empty() && alle.back().stand.date() >= sys::heute()) return;
        sichere(datei, *wo);
    } catch (...) {
        sys::warn(u"Die Sicherung von "_s + QFileInfo(datei).fileName() + u" ist nicht gelungen: "_s +
                  sys::caughtError().text);
    }
}

void sichereVorAenderungen()
{
    jet::engine().setBeforeChange(sichereVorAenderung);
}

std::vector<int> gesicherteJahre(const QString& betriebsordner)
{
    static const QRegularExpression form(u"^Lager-(\\d{4})_"_s, QRegularExpression::CaseInsensitiveOption);
    std::set<int> jahre;
    const auto wo = ablage(journaldatei(betriebsordner, 2000)); // whatever year
    for (const QString& name : wo ? QDir(wo->ordner).entryList(QDir::Files) : QStringList())
        if (const auto treffer = form.match(name); treffer.hasMatch())
            jahre.insert(treffer.captured(1).toInt());
    return {jahre.begin(), jahre.end()};
}

std::vector<Sicherung> sicherungen(const QString& datei)
{
    const auto wo = ablage(datei);
    return wo ? sicherungen(*wo) : std::vector<Sicherung>();
}
