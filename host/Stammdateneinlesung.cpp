#include "host/Stammdateneinlesung.h"

#include "core/farm/Jahresdateien.h"
#include "core/farm/Schema.h"
#include "core/farm/stammdaten/Einlesung.h"
#include "host/Aufruffehler.h"
#include "host/Ausgabe.h"
#include "host/Teilerfolg.h"
#include "platform/system/Files.h"
#include "platform/system/Path.h"
#include "platform/system/Settings.h"

#include <zablager/DatabaseError.h>
#include <zablager/FileError.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <map>

using namespace Qt::StringLiterals;

namespace {

/// A file that is read, and into which table.
struct Quelle {
    QString name;
    Csv csv;
    const Stammtabelle* tabelle; ///< Null: that of the farms.
    QString ziel;                ///< The database; empty: the settings.
};

QStringList dateien(const QString& pfad)
{
    if (QFileInfo(pfad).isFile()) return {pfad};
    QStringList alle;
    const QDir ordner(pfad);
    for (const QString& name : ordner.entryList({u"*.csv"_s}, QDir::Files, QDir::Name))
        alle.append(ordner.filePath(name));
    if (alle.isEmpty())
        throw sys::FileError(sys::FileErrorNumber::FileNotFound,
                             u"In '"_s + pfad + u"' ist keine CSV-Datei."_s);
    return alle;
}

/// "Mittel-2026.csv" is of 2026 where the call names no year.
QString registerdatei(const Stammdatenauftrag& auftrag, const QString& name)
{
    static const QRegularExpression endung(u"-(\\d{4})\\.csv$"_s, QRegularExpression::CaseInsensitiveOption);
    const auto treffer = endung.match(name);
    if (!auftrag.jahr && !treffer.hasMatch())
        throw Aufruffehler(
            name + u": Von welchem Jahr sie ist, sagt --jahr oder ihr Name, etwa 'Register-2026.csv'."_s);
    const QString jahr = auftrag.jahr ? QString::number(*auftrag.jahr) : treffer.captured(1);
    return sys::localPath(stammdatei(auftrag.ort.programm(), jahr));
}

bool istBetriebe(const Stammdatenauftrag& auftrag, const Csv& csv)
{
    return auftrag.tabelle.isEmpty() ? csv.titel == Betriebstitel
                                     : auftrag.tabelle.compare(Betriebstabelle, Qt::CaseInsensitive) == 0;
}

Quelle gelesen(const Stammdatenauftrag& auftrag, const QString& pfad)
{
    QFile datei(pfad);
    if (!datei.open(QIODevice::ReadOnly))
        throw sys::FileError(sys::FileErrorNumber::PathAccess,
                             u"'"_s + pfad + u"' lässt sich nicht lesen: "_s + datei.errorString());
    Quelle quelle{QFileInfo(pfad).fileName(), liesCsv(datei.readAll()), nullptr, {}};
    if (istBetriebe(auftrag, quelle.csv)) return quelle;
    quelle.tabelle =
        auftrag.tabelle.isEmpty() ? &stammtabelleMit(quelle.csv.titel) : &stammtabelleNamens(auftrag.tabelle);
    switch (quelle.tabelle->art) {
    case Dateiart::Anlagen: quelle.ziel = sys::localPath(anlagendatei(auftrag.ort.anlagen())); break;
    case Dateiart::ZABStammdaten: quelle.ziel = registerdatei(auftrag, quelle.name); break;
    default: quelle.ziel = sys::localPath(grundstammdatei(auftrag.ort.daten())); break;
    }
    return quelle;
}

void berichte(const Quelle& quelle, const Einleseergebnis& ergebnis)
{
    QStringList form{quelle.csv.zeichensatz, quelle.csv.trenner == u';' ? u"Semikolon"_s : u"Komma"_s};
    if (ergebnis.zahlen)
        form << (ergebnis.zahlen->istDeutsch() ? u"deutsche Zahlen"_s : u"Zahlen mit Punkt"_s);
    schreibe(stdout, quelle.name +
                         u" (%1): %2 neu, %3 geändert, %4 unverändert, %5 abgelehnt"_s.arg(form.join(u", "_s))
                             .arg(ergebnis.neue)
                             .arg(ergebnis.geaenderte)
                             .arg(ergebnis.gleiche)
                             .arg(ergebnis.abgelehnte.size()));
    for (const Ablehnung& eine : ergebnis.abgelehnte)
        schreibe(stderr, quelle.name + u", Zeile "_s + QString::number(eine.zeile) +
                             (eine.spalte.isEmpty() ? QString() : u", Spalte '"_s + eine.spalte + u"'"_s) +
                             u": "_s + eine.grund);
    for (const QString& warnung : ergebnis.warnungen)
        schreibe(stderr, u"Warnung: "_s + warnung);
}

/// A database and what goes into it, in one commit. One that is missing is filled under another name.
bool fuelle(const QString& ziel, const std::vector<Quelle>& quellen, bool probe)
{
    const Dateiart art = quellen.front().tabelle->art;
    const QTemporaryDir probierordner;
    const bool fehlt = !sys::Exist(ziel);
    const QString entwurf = probe ? probierordner.filePath(u"probe"_s) : sys::draftName(ziel);
    const auto weg = qScopeGuard([&] { QFile::remove(entwurf); });
    if (fehlt) legeAn(art, entwurf);
    const auto datei = oeffne(art, fehlt ? entwurf : ziel);
    if (!probe) bringeAufStand(*datei, art);
    datei->BeginTrans();
    auto verwirf = qScopeGuard([&] { datei->Rollback(); });
    bool alles = true;
    for (const Quelle& quelle : quellen) {
        const auto ergebnis = liesEin(quelle.csv, *quelle.tabelle, *datei);
        berichte(quelle, ergebnis);
        alles = alles && ergebnis.abgelehnte.empty();
    }
    if (!alles)
        schreibe(stderr,
                 QFileInfo(ziel).fileName() + u": Wegen der abgelehnten Zeilen bleibt sie, wie sie ist."_s);
    if (!alles || probe) return alles;
    datei->CommitTrans();
    verwirf.dismiss();
    datei->Close();
    if (fehlt) sys::CopyWhereMissing(entwurf, ziel);
    return true;
}

Einleseergebnis liesBetriebe(const Stammdatenauftrag& auftrag, const Csv& csv, bool probe)
{
    Einleseergebnis ergebnis;
    if (csv.titel != Betriebstitel)
        throw jet::Error(jet::ErrorNumber::InvalidArgument,
                         u"Die Titel sind nicht "_s + Betriebstitel.join(u", "_s));
    for (const Csv::Zeile& zeile : csv.zeilen)
        if (!auftrag.betriebe.contains(zeile.zellen[0]))
            ergebnis.abgelehnte.push_back(
                {zeile.nummer, csv.titel[0],
                 u"Den Betrieb '"_s + zeile.zellen[0] + u"' gibt es hier nicht."_s});
    for (const Csv::Zeile& zeile : csv.zeilen) {
        const QString abschnitt = u"Betrieb "_s + zeile.zellen[0];
        bool gleich = true;
        for (const qsizetype spalte : {1, 2}) {
            if (sys::GetSetting(abschnitt, csv.titel[spalte]) == zeile.zellen[spalte]) continue;
            gleich = false;
            if (!probe && ergebnis.abgelehnte.empty())
                sys::SaveSetting(abschnitt, csv.titel[spalte], zeile.zellen[spalte]);
        }
        ++(gleich ? ergebnis.gleiche : ergebnis.geaenderte);
    }
    return ergebnis;
}

/// Leaves out what came before of the same table of a register: of files by years the newest one is meant.
void uebergehe(std::vector<Quelle>& bisherige, const Quelle& neuere)
{
    if (!neuere.tabelle || neuere.tabelle->art != Dateiart::ZABStammdaten) return;
    std::erase_if(bisherige, [&](const Quelle& eine) {
        if (eine.tabelle != neuere.tabelle) return false;
        schreibe(stdout, eine.name + u": bleibt ungelesen; "_s + neuere.name + u" ist neuer."_s);
        return true;
    });
}

} // namespace

void liesStammdatenEin(const Stammdatenauftrag& auftrag, bool probe)
{
    std::map<QString, std::vector<Quelle>> ziele;
    for (const QString& pfad : dateien(auftrag.pfad)) {
        try {
            Quelle quelle = gelesen(auftrag, pfad);
            auto& bisherige = ziele[quelle.ziel];
            if (auftrag.jahr) uebergehe(bisherige, quelle); // all years would go into this one
            bisherige.push_back(std::move(quelle));
        } catch (const jet::Error& fehler) {
            throw jet::Error(fehler.number(), QFileInfo(pfad).fileName() + u": "_s + fehler.text());
        }
    }
    bool alles = true;
    for (const auto& [ziel, quellen] : ziele) {
        if (!ziel.isEmpty()) {
            alles = fuelle(ziel, quellen, probe) && alles;
            continue;
        }
        for (const Quelle& quelle : quellen) {
            const auto ergebnis = liesBetriebe(auftrag, quelle.csv, probe);
            berichte(quelle, ergebnis);
            alles = alles && ergebnis.abgelehnte.empty();
        }
    }
    if (!alles) throw Teilerfolg();
}
