#include "core/farm/Jahresdateien.h"
#include "core/farm/pruefung/Dateipruefung.h"
#include "host/Ausgabe.h"
#include "host/Befehl.h"
#include "host/Staende.h"
#include "platform/jet/Engine.h"
#include "platform/system/Clock.h"
#include "platform/system/Files.h"

#include <zablager/FileError.h>

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// What it holds is kept beside its other copies, in whatever state it is.
void sichereBisherige(const QString& datei)
{
    try {
        sichere(datei);
    } catch (const jet::Error& fehler) {
        if (fehler.number() != jet::ErrorNumber::UnknownFormat) throw;
        const QFileInfo kopie(sicherungen(datei).back().datei); // there is one: it is about to come back
        sys::FileCopy(datei, kopie.path() + u"/beschaedigt_"_s + sys::heute().toString(Qt::ISODate) + u'_' +
                                 QFileInfo(datei).fileName());
        sys::Kill(datei); // no screen has it open: none could
    }
}

void holeZurueck(const QString& datei, const Sicherung& stand, const Installation& ort)
{
    Befunde befunde({}, {});
    const Dateipruefung pruefung(Dateiart::Lager, stand.datei, befunde);
    if (!pruefung.kopie())
        throw jet::Error(jet::ErrorNumber::UnknownFormat, u"Die Sicherung '"_s + stand.datei +
                                                              u"' kommt nicht zurück. "_s +
                                                              befunde.nimm().front().text);
    if (sys::Exist(datei)) sichereBisherige(datei);
    if (sys::Exist(datei))
        jet::engine().CopyDatabase(stand.datei, datei); // whoever has it open goes on in it
    else
        sys::CopyWhereMissing(stand.datei, datei);
    schreibe(stdout, ort.kurz(datei) + u": Stand vom "_s + standtext(stand));
}

void zurueckholen(const QCommandLineParser& aufruf)
{
    const QStringList worte = aufruf.positionalArguments();
    const Installation ort(worte.constFirst());
    const QString betrieb = gewaehlterBetrieb(ort, aufruf);
    const auto gewaehlte = staende(ort, betrieb, aufruf.value(u"stand"_s),
                                   worte.size() > 1 ? std::optional(jahr(worte.at(1))) : std::nullopt);
    for (const auto& [dieses, stand] : gewaehlte)
        holeZurueck(ort.journaldatei(betrieb, dieses), stand, ort);
    const int erstes = gewaehlte.begin()->first;
    if (jahresdateien(ort.betriebsordner(betrieb)).back() > erstes)
        schreibe(stdout, u"Die Anfangsbestände der späteren Jahre rechnet 'zablager uebertrag "_s +
                             worte.constFirst() + u" --ab "_s + QString::number(erstes) + u"' neu."_s);
}

} // namespace

Befehl zurueckholenBefehl()
{
    return {u"zurueckholen"_s,
            u"VERZEICHNIS [JAHR]"_s,
            u"Holt die Jahre eines Betriebes, oder eines, aus der Sicherung zurück; was jetzt da ist, wird"_s
            u" vorher gesichert."_s,
            {{u"betrieb"_s, u"Nummer des Betriebes, nur Ziffern."_s, u"NR"_s},
             {u"stand"_s, u"Tag der Sicherung, oder mit 'hh:mm:ss' dahinter genau eine."_s, u"T.M.JJJJ"_s}},
            {u"betrieb"_s, u"stand"_s},
            zurueckholen};
}
