#include "core/farm/Dateien.h"
#include "host/Ausgabe.h"
#include "host/Befehl.h"
#include "host/Komponente.h"
#include "platform/jet/Errors.h"
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
    if (fehlernummer != 0)
        throw jet::Error(jet::ErrorNumber(fehlernummer), lager.property("LetzterFehler").toString());
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
    const auto journal = oeffneFuerBestand(datei);
    const QString keineBuchung = u"In '"_s + datei + u"' nennt keine Buchung den "_s;
    if (!nenntEineBuchung(*journal, u"Artikel"_s, Artikel))
        schreibe(stderr, keineBuchung + u"Artikel '"_s + Artikel + u"'."_s);
    if (!nenntEineBuchung(*journal, u"LagerortKurzKu"_s, Lagerort))
        schreibe(stderr, keineBuchung + u"Lagerort '"_s + Lagerort + u"'."_s);
}

/// Another program may have put a text among the quantities: the sum takes it as 0, and a program would read
/// the figure.
void pruefeMengen(const QString& datei, const QString& Artikel, const QString& Lagerort, QDate Stichtag)
{
    const auto journal = oeffneFuerBestand(datei);
    const auto texte = journal->OpenRecordset(
        u"SELECT ID FROM LAGERJOURNAL WHERE Artikel = '"_s + Artikel + u"' AND LagerortKurzKu = '"_s +
            Lagerort + u"' AND Datum <= "_s + Stichtag.toString(u"#MM/dd/yyyy#") +
            u" AND Menge > 1.7976931348623157E308"_s, // every text is, and no number
        jet::Kind::Snapshot);
    if (texte->Eof()) return;
    const jet::Error fehler(jet::ErrorNumber::ConversionFailed,
                            jet::errorText(jet::ErrorNumber::ConversionFailed));
    throw jet::named(jet::named(jet::named(fehler, u"Feld"_s, u"Menge"_s), u"Datei"_s, datei), u"ID"_s,
                     (*texte)[u"ID"].toText());
}

void zeigeBestand(const QCommandLineParser& aufruf)
{
    const QStringList argumente = aufruf.positionalArguments();
    const Installation ort(argumente[0]);
    const QDate Stichtag = datum(argumente[3]);
    const QString betrieb = gewaehlterBetrieb(ort, aufruf);
    const QString datei = ort.journaldatei(betrieb, Stichtag.year());
    if (!sys::Exist(datei)) // the component would tell it and answer 0, and a program would read the figure
        throw sys::FileError(sys::FileErrorNumber::FileNotFound,
                             u"Der Dateiname "_s + datei + u" existiert nicht!"_s);
    ort.verwende();
    // Only the carry-forward hands the farm number on. With this key date it finds no year at all.
    const auto lager = lagerverwaltungsdaten(ort, betrieb, QDate(10000, 1, 1));
    lager->Kontrolle_LagerbestandLaden();
    const double menge = bestand(dynamic_cast<QObject&>(*lager), argumente[1], argumente[2], Stichtag);
    pruefeMengen(datei, argumente[1], argumente[2], Stichtag);
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
