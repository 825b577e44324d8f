#include "core/farm/umbenennung/Umbenennungslauf.h"

#include "core/farm/Dateien.h"
#include "core/farm/Jahresdateien.h"
#include "core/farm/Sicherung.h"
#include "core/farm/umbenennung/Journalname.h"
#include "core/farm/umbenennung/Stammname.h"
#include "core/farm/umbenennung/Umbenennungsplan.h"
#include "platform/system/Files.h"
#include "platform/system/Path.h"

#include <zablager/DatabaseError.h>
#include <zablager/FileError.h>

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

/// What a run is about, where the next one finds it.
struct Auftrag {
    Umbenennung umbenennung;
    Umbenennungsort ort;
    ErsteJahre ab;
};

QString auftragsdatei(const QString& datenverzeichnis)
{
    return sys::localPath(datenverzeichnis) + u"/Umbenennung.json"_s;
}

void merke(const Auftrag& auftrag)
{
    QJsonObject ab;
    for (const auto& [betrieb, jahr] : auftrag.ab)
        ab[betrieb] = jahr;
    const QJsonObject json{{u"Spalte"_s, journalspalte(auftrag.umbenennung.was).toString()},
                           {u"Alt"_s, auftrag.umbenennung.alt},
                           {u"Neu"_s, auftrag.umbenennung.neu},
                           {u"Betrieb"_s, auftrag.umbenennung.betrieb},
                           {u"Programm"_s, auftrag.ort.programmverzeichnis},
                           {u"Anlagen"_s, auftrag.ort.anlagenverzeichnis},
                           {u"Ab"_s, ab}};
    sys::writeWhole(auftragsdatei(auftrag.ort.datenverzeichnis), QJsonDocument(json).toJson());
}

std::optional<Auftrag> gemerkter(const QString& datenverzeichnis)
{
    QFile datei(auftragsdatei(datenverzeichnis));
    if (!datei.exists()) return {};
    const auto json =
        datei.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(datei.readAll()) : QJsonDocument();
    Auftrag auftrag{
        {Namensart::Artikel, json[u"Alt"].toString(), json[u"Neu"].toString(), json[u"Betrieb"].toString()},
        {datenverzeichnis, json[u"Programm"].toString(), json[u"Anlagen"].toString()},
        {}};
    for (const Namensart was : {Namensart::Lagerort, Namensart::Partner})
        if (json[u"Spalte"].toString() == journalspalte(was)) auftrag.umbenennung.was = was;
    const QJsonObject ab = json[u"Ab"].toObject();
    for (auto jahr = ab.begin(); jahr != ab.end(); ++jahr)
        auftrag.ab[jahr.key()] = jahr.value().toInt();
    if (auftrag.umbenennung.alt.isEmpty() || auftrag.umbenennung.neu.isEmpty())
        throw sys::FileError(sys::FileErrorNumber::AccessDenied,
                             u"Die Datei '"_s + datei.fileName() +
                                 u"' ist keine Umbenennung dieses Programms."_s);
    return auftrag;
}

void sichereAlles(const Umbenennungsplan& plan, const Auftrag& auftrag)
{
    for (const Jahresplan& jahr : plan.jahre)
        sichere(sys::localPath(
            journaldatei(betriebsordner(auftrag.ort.datenverzeichnis, jahr.betrieb), jahr.jahr)));
    if (plan.stammdaten.isEmpty()) return;
    const bool istOrt = auftrag.umbenennung.was == Namensart::Lagerort;
    sichere(sys::localPath(istOrt ? anlagendatei(auftrag.ort.anlagenverzeichnis)
                                  : grundstammdatei(auftrag.ort.datenverzeichnis)));
}

/// What is done already stays as it is.
ErsteJahre vollende(const Auftrag& auftrag)
{
    const auto& [umbenennung, ort, ab] = auftrag;
    for (const QString& betrieb : ort.betriebe(umbenennung)) {
        const QString ordner = betriebsordner(ort.datenverzeichnis, betrieb);
        std::unique_ptr<jet::Database> vorjahr;
        for (const int jahr : jahresdateien(ordner)) {
            auto journal = oeffne(Dateiart::Lager, journaldatei(ordner, jahr));
            Journalname(*journal, umbenennung).schreibe(vorjahr.get());
            vorjahr = std::move(journal);
        }
    }
    schreibeStamm(umbenennung, ort);
    sys::Kill(auftragsdatei(ort.datenverzeichnis));
    return ab;
}

} // namespace

ErsteJahre benenneUm(const Umbenennung& umbenennung, const Umbenennungsort& ort)
{
    if (const auto offener = gemerkter(ort.datenverzeichnis)) {
        ErsteJahre ab = vollende(*offener);
        if (offener->umbenennung == umbenennung) return ab;
    }
    const Umbenennungsplan plan = plane(umbenennung, ort);
    if (!plan.hindernisse.isEmpty())
        throw jet::Error(jet::ErrorNumber::InvalidArgument, plan.hindernisse.join(u'\n'));
    Auftrag auftrag{umbenennung, ort, {}};
    for (const Jahresplan& jahr : plan.jahre)
        auftrag.ab.try_emplace(jahr.betrieb, jahr.jahr); // the years of a farm ascend
    sichereAlles(plan, auftrag);
    merke(auftrag);
    return vollende(auftrag);
}

std::optional<Umbenennung> unterbrochene(const QString& datenverzeichnis)
{
    const auto auftrag = gemerkter(datenverzeichnis);
    return auftrag ? std::optional(auftrag->umbenennung) : std::nullopt;
}

ErsteJahre fuehreZuEnde(const QString& datenverzeichnis)
{
    const auto auftrag = gemerkter(datenverzeichnis);
    return auftrag ? vollende(*auftrag) : ErsteJahre();
}
