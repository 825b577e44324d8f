#include "core/farm/Dateien.h"
#include "core/farm/Jahresdateien.h"
#include "host/Ausgabe.h"
#include "host/Befehl.h"
#include "host/Komponente.h"

#include <zablager/FileError.h>

using namespace Qt::StringLiterals;

namespace {

bool hatBuchungen(const Installation& ort, const QString& betrieb, int jahr)
{
    const auto journal = oeffne(Dateiart::Lager, ort.journaldatei(betrieb, jahr));
    return !journal->OpenRecordset(u"SELECT TOP 1 ID FROM LAGERJOURNAL"_s)->Eof();
}

/// "2023 nach 2024", "2024 nach 2027 (ohne 2025, 2026)", "2025 nach 2026: nicht übernommen".
QString uebergang(const Installation& ort, const QString& betrieb, int von, int nach)
{
    QString text = QString::number(von) + u" nach "_s + QString::number(nach);
    QStringList fehlende;
    for (int jahr = von + 1; jahr < nach; ++jahr)
        fehlende.append(QString::number(jahr));
    if (!fehlende.isEmpty()) text += u" (ohne "_s + fehlende.join(u", "_s) + u')';
    const auto ziel = oeffne(Dateiart::Lager, ort.journaldatei(betrieb, nach));
    return uebernimmtVorjahr(*ziel) ? text : text + u": nicht übernommen, so ist es im Jahr eingestellt"_s;
}

void uebertrage(const QCommandLineParser& aufruf)
{
    const Installation ort(aufruf.positionalArguments().constFirst());
    const int ab = jahr(aufruf.value(u"ab"_s));
    const QString betrieb = gewaehlterBetrieb(ort, aufruf);
    ort.verwende();
    lagerverwaltungsdaten(ort, betrieb, QDate(ab, 1, 1))->Kontrolle_LagerbestandLaden();

    std::vector<int> jahre = jahresdateien(ort.betriebsordner(betrieb));
    std::erase_if(jahre, [ab](int jahr) { return jahr < ab; });
    if (jahre.empty())
        throw sys::FileError(sys::FileErrorNumber::FileNotFound, u"In '"_s + ort.betriebsordner(betrieb) +
                                                                     u"' gibt es kein Jahr ab "_s +
                                                                     QString::number(ab) + u'.');
    if (jahre.size() == 1)
        return schreibe(stdout, u"Nach "_s + QString::number(jahre.front()) +
                                    u" gibt es noch kein Jahr: Es ist nichts zu übertragen."_s);
    QStringList uebergaenge;
    for (std::size_t i = 1; i < jahre.size(); ++i) {
        if (hatBuchungen(ort, betrieb, jahre[i - 1]))
            uebergaenge.append(uebergang(ort, betrieb, jahre[i - 1], jahre[i]));
    }
    if (uebergaenge.isEmpty())
        return schreibe(stdout, u"Vor "_s + QString::number(jahre.back()) +
                                    u" ist nichts gebucht: Es ist nichts zu übertragen."_s);
    schreibe(stdout, u"Bestände übertragen: "_s + uebergaenge.join(u"; "_s));
}

} // namespace

Befehl uebertragBefehl()
{
    return {
        u"uebertrag"_s,
        u"VERZEICHNIS"_s,
        u"Schreibt die Bestände von Jahr zu Jahr weiter."_s,
        {betriebOption(), {u"ab"_s, u"Erstes Jahr, dessen Bestände weitergeschrieben werden."_s, u"JAHR"_s}},
        {u"ab"_s},
        uebertrage};
}
