#include "host/Ausgabe.h"
#include "host/Befehl.h"
#include "host/Komponente.h"

#include <zablager/DatabaseError.h>

#include <QMetaObject>

using namespace Qt::StringLiterals;

namespace {

/// Asks late-bound, by the method's name, as scripts do; the other commands call through the function table.
double bestand(QObject& lager, const QString& Artikel, const QString& Lagerort, QDate Stichtag)
{
    double menge = 0;
    QMetaObject::invokeMethod(&lager, "Get_Bestand", Qt::DirectConnection, Q_RETURN_ARG(double, menge),
                              Q_ARG(QString, Artikel), Q_ARG(QString, Lagerort), Q_ARG(QDate, Stichtag));
    const int fehlernummer = lager.property("LetzteFehlernummer").toInt();
    if (fehlernummer != 0) throw jet::Error(jet::ErrorNumber(fehlernummer), lager.property("LetzterFehler").toString());
    return menge;
}

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
    schreibe(stdout, zahlText(bestand(dynamic_cast<QObject&>(*lager), argumente[1], argumente[2], Stichtag)));
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
