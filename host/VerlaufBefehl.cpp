#include "core/farm/Jahresdateien.h"
#include "core/farm/verlauf/Jahresverlauf.h"
#include "host/Ausgabe.h"
#include "host/Befehl.h"
#include "platform/jet/Value.h"

using namespace Qt::StringLiterals;

namespace {

/// Days with bookings: day, receipts, issues and stock, with tabulators between.
void zeigeVerlauf(const QCommandLineParser& aufruf)
{
    const QStringList worte = aufruf.positionalArguments();
    const Installation ort(worte.constFirst());
    const QString betrieb = gewaehlterBetrieb(ort, aufruf);
    const Verlaufsziel ziel{worte[1], worte.value(2)};
    schreibe(stdout, u"Tag\tZugang\tAbgang\tBestand"_s);
    for (const int jahr : jahresdateien(ort.betriebsordner(betrieb))) {
        const Jahresverlauf verlauf(jahr, oeffne(Dateiart::Lager, ort.journaldatei(betrieb, jahr)), ziel);
        for (const Tagesstand& tag : verlauf.kurve().tage) {
            const QStringList zellen{tag.tag.toString(u"dd.MM.yyyy"_s), jet::Value(tag.Zugang).toText(),
                                     jet::Value(tag.Abgang).toText(), jet::Value(tag.Bestand).toText()};
            schreibe(stdout, zellen.join(u'\t'));
        }
    }
}

} // namespace

Befehl verlaufBefehl()
{
    return {u"verlauf"_s,
            u"VERZEICHNIS ARTIKEL [LAGERORT]"_s,
            u"Zeigt den Bestand eines Artikels an jedem Tag mit Buchungen, Jahr für Jahr."_s,
            {betriebOption()},
            {},
            zeigeVerlauf};
}
