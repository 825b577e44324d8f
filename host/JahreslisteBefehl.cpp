#include "core/farm/jahresliste/Jahresliste.h"
#include "host/Ausgabe.h"
#include "host/Befehl.h"

using namespace Qt::StringLiterals;

namespace {

QString zelle(const std::optional<double>& zahl)
{
    return zahl ? jet::Value(*zahl).toText() : QString();
}

/// A line a stock, with tabulators between, the sum last.
void zeigeJahresliste(const QCommandLineParser& aufruf)
{
    const Installation ort(aufruf.positionalArguments().constFirst());
    const QString betrieb = gewaehlterBetrieb(ort, aufruf);
    const int welches = jahr(aufruf.value(u"jahr"_s));
    const auto journal = oeffne(Dateiart::Lager, ort.journaldatei(betrieb, welches));
    schreibe(stdout, u"Artikelgruppe\tArtikel\tLagerort\tEinheit\t"_s + jahresarten().join(u'\t') +
                         u"\tEndbestand\tPreis\tWert"_s);
    const auto liste = jahresliste(*journal, welches);
    for (const Jahreszeile& zeile : liste) {
        QStringList zellen{zeile.Artikelart, zeile.Artikel, zeile.LagerortKurzKu, zeile.Einheit};
        for (const double menge : zeile.jeBuchungsart)
            zellen.append(zelle(menge));
        zellen << zelle(zeile.Endbestand) << zelle(zeile.Preis) << zelle(zeile.Wert());
        schreibe(stdout, zellen.join(u'\t'));
    }
    const Jahressumme alle = summe(liste);
    schreibe(stdout, u"Wert aller Bestände: "_s + jet::Value(alle.Wert).toText() +
                         u"; Zeilen ohne Preis: "_s + QString::number(alle.ohnePreis));
}

} // namespace

Befehl jahreslisteBefehl()
{
    return {u"jahresliste"_s,
            u"VERZEICHNIS"_s,
            u"Zeigt für den Steuerberater, wie die Bestände eines Jahres entstanden und was sie wert sind."_s,
            {{u"jahr"_s, u"Das Jahr."_s, u"JAHR"_s}, betriebOption()},
            {u"jahr"_s},
            zeigeJahresliste};
}
