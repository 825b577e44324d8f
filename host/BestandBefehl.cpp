#include "host/Ausgabe.h"
#include "host/Befehl.h"
#include "host/Komponente.h"

using namespace Qt::StringLiterals;

namespace {

void zeigeBestand(const QCommandLineParser& aufruf)
{
    const QStringList argumente = aufruf.positionalArguments();
    const Installation ort(argumente[0]);
    const QDate Stichtag = datum(argumente[3]);
    const QString betrieb = gewaehlterBetrieb(ort, aufruf);
    ort.verwende();
    // Only the carry-forward hands the farm number on. With this key date it finds no year at all.
    const auto lager = lagerverwaltungsdaten(ort, betrieb, QDate(10000, 1, 1));
    lager->Kontrolle_LagerbestandLaden();
    schreibe(stdout, zahlText(lager->Get_Bestand(argumente[1], argumente[2], Stichtag)));
}

} // namespace

Befehl bestandBefehl()
{
    return {u"bestand"_s,
            u"VERZEICHNIS ARTIKEL LAGERORT DATUM"_s,
            u"Zeigt den Bestand eines Artikels an einem Lagerort am Ende des Tages DATUM (T.M.JJJJ)."_s,
            {betriebOption()},
            {},
            zeigeBestand};
}
