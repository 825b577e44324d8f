#include "core/farm/umbenennung/Umbenennungslauf.h"
#include "core/farm/umbenennung/Umbenennungsplan.h"
#include "host/Aufruffehler.h"
#include "host/Ausgabe.h"
#include "host/Befehl.h"
#include "host/Komponente.h"

#include <zablager/DatabaseError.h>

using namespace Qt::StringLiterals;

namespace {

constexpr std::pair<QStringView, Namensart> Arten[] = {
    {u"artikel", Namensart::Artikel}, {u"lagerort", Namensart::Lagerort}, {u"partner", Namensart::Partner}};

Umbenennung gemeinte(const QCommandLineParser& aufruf)
{
    Umbenennung umbenennung{Namensart::Artikel, {}, aufruf.value(u"neu"_s), {}};
    int genannte = 0;
    for (const auto& [name, was] : Arten) {
        if (!aufruf.isSet(name.toString())) continue;
        ++genannte;
        umbenennung.was = was;
        umbenennung.alt = aufruf.value(name.toString());
    }
    if (genannte != 1) throw Aufruffehler(u"Nennen Sie eines: --artikel, --lagerort oder --partner."_s);
    if (aufruf.isSet(u"betrieb"_s)) umbenennung.betrieb = betriebsnummer(aufruf);
    return umbenennung;
}

void benenne(const QCommandLineParser& aufruf)
{
    const Installation ort(aufruf.positionalArguments().constFirst());
    const Umbenennung umbenennung = gemeinte(aufruf);
    if (!umbenennung.betrieb.isEmpty()) gewaehlterBetrieb(ort, aufruf); // there is such a farm
    const Umbenennungsort dateien{ort.daten(), ort.programm(), ort.anlagen()};
    const auto offene = unterbrochene(ort.daten());
    if (offene)
        schreibe(stdout, u"Die Umbenennung von '"_s + offene->alt + u"' in '"_s + offene->neu +
                             u"' wurde unterbrochen und wird zuerst zu Ende geführt."_s);
    if (offene != umbenennung) {
        const Umbenennungsplan plan = plane(umbenennung, dateien);
        schreibe(plan.hindernisse.isEmpty() ? stdout : stderr, plan.text());
        if (!plan.hindernisse.isEmpty())
            throw jet::Error(jet::ErrorNumber::InvalidArgument, u"Es ist nichts geändert."_s);
    }
    if (aufruf.isSet(u"probe"_s)) return schreibe(stdout, u"Das war eine Probe: Es ist nichts geändert."_s);
    ort.verwende();
    for (const auto& [betrieb, jahr] : benenneUm(umbenennung, dateien))
        lagerverwaltungsdaten(ort, betrieb, QDate(jahr, 1, 1))->Kontrolle_LagerbestandLaden();
    schreibe(stdout, u"'"_s + umbenennung.alt + u"' heißt jetzt '"_s + umbenennung.neu + u"'."_s);
}

} // namespace

Befehl umbenennenBefehl()
{
    return {
        u"umbenennen"_s,
        u"VERZEICHNIS"_s,
        u"Gibt einem Artikel, Lagerort oder Geschäftspartner in allen Jahren einen anderen Namen; gibt es ihn"
        u" schon, werden die beiden eins."_s,
        {{u"artikel"_s, u"Der Artikel, wie er jetzt heißt."_s, u"ALT"_s},
         {u"lagerort"_s, u"Das Kürzel des Lagerortes."_s, u"ALT"_s},
         {u"partner"_s, u"Das Kürzel des Geschäftspartners."_s, u"ALT"_s},
         {u"neu"_s, u"Der neue Name."_s, u"NEU"_s},
         {u"betrieb"_s, u"Nur in diesem Betrieb; die Stammdaten behalten den alten Namen."_s, u"NR"_s},
         {u"probe"_s, u"Sagt nur, was geschehen würde."_s}},
        {u"neu"_s},
        benenne};
}
