#include "host/Ausgabe.h"
#include "host/Befehl.h"
#include "host/Komponente.h"
#include "platform/jet/Engine.h"
#include "platform/system/Files.h"

#include <zablager/DatabaseError.h>
#include <zablager/FileError.h>

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

bool nenntEineBuchung(jet::Database& journal, const QString& spalte, const QString& name)
{
    const QString frage = u"SELECT TOP 1 ID FROM LAGERJOURNAL WHERE "_s + spalte + u" = '"_s + name + u"'"_s;
    return !journal.OpenRecordset(frage, jet::Kind::Snapshot)->Eof();
}

/// A misspelt name has the stock 0 like one that is used up; the user is told the difference.
void meldeUnbekannte(const QString& datei, const QString& Artikel, const QString& Lagerort)
{
    const auto journal = jet::engine().OpenDatabase(datei);
    const QString keineBuchung = u"In '"_s + datei + u"' nennt keine Buchung den "_s;
    if (!nenntEineBuchung(*journal, u"Artikel"_s, Artikel))
        schreibe(stderr, keineBuchung + u"Artikel '"_s + Artikel + u"'."_s);
    if (!nenntEineBuchung(*journal, u"LagerortKurzKu"_s, Lagerort))
        schreibe(stderr, keineBuchung + u"Lagerort '"_s + Lagerort + u"'."_s);
}

void zeigeBestand(const QCommandLineParser& aufruf)
{
    const QStringList argumente = aufruf.positionalArguments();
    const Installation ort(argumente[0]);
    const QDate Stichtag = datum(argumente[3]);
    const QString betrieb = gewaehlterBetrieb(ort, aufruf);
    const QString datei = ort.journaldatei(betrieb, Stichtag.year());
    if (!sys::Exist(datei)) // the component would tell it and answer 0, and a program would read the figure
        throw sys::FileError(sys::FileErrorNumber::FileNotFound, u"Der Dateiname "_s + datei + u" existiert nicht!"_s);
    ort.verwende();
    // Only the carry-forward hands the farm number on. With this key date it finds no year at all.
    const auto lager = lagerverwaltungsdaten(ort, betrieb, QDate(10000, 1, 1));
    lager->Kontrolle_LagerbestandLaden();
    const double menge = bestand(dynamic_cast<QObject&>(*lager), argumente[1], argumente[2], Stichtag);
    if (menge == 0) meldeUnbekannte(datei, argumente[1], argumente[2]);
    schreibe(stdout, zahlText(menge));
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
