// A host that compiles against the interface: carries the stocks of farm 4711 forward and asks for them.
// Argument: the directory of the farm.

#include <zablager/DatabaseError.h>
#include <zablager/FileError.h>
#include <zablager/Lagerverwaltungsdaten.h>
#include <zablager/Messages.h>

#include <QPluginLoader>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// Messages to the user go to standard output.
class Meldungen final : public sys::Messages {
    sys::Answer show(const QString& text, int) override
    {
        std::printf("Meldung: %s\n", qUtf8Printable(text));
        return sys::Answer::OK;
    }
};

void setzeEigenschaften(_Lagerverwaltungsdaten& lager, const QString& hof)
{
    lager.setBetriebsnummer(u"4711"_s);
    lager.setBetriebsname(u"Hof Lindenau"_s);
    lager.setBetriebsadresse(u"Lindenau 3"_s);
    lager.setStammverzeichnis(hof + u"/daten"_s);
    lager.setAnlagenverzeichnis(hof + u"/anlagen"_s);
    lager.setAnlagenpasswort(u"volmira"_s);
    lager.setLagerpasswort(u";pwd=quenlor"_s);
    lager.setBetriebpasswort(QString());
    lager.setDatenverzeichnis(hof + u"/daten/B4711/Lager.2024"_s); // of the key date's year
    lager.setStichdatum(QDate(2024, 1, 1));
    lager.setArtikelname(u"Weizen"_s);
    lager.setLagername(u"H1"_s);
    lager.setHerkunft(u"Beispiel"_s);
    lager.setWaehrung(u"€"_s);
}

void frage(IZablager& zablager, const QString& hof)
{
    const auto lager = zablager.erzeuge();
    setzeEigenschaften(*lager, hof);
    lager->Kontrolle_LagerbestandLaden(); // 2024 into 2025, 2025 into 2026, ...
    std::printf("Weizen: %g\n", lager->Get_Bestand(u"Weizen"_s, u"H1"_s, QDate(2025, 6, 30)));

    const auto zweites = zablager.erzeuge(); // knows the farm from the call above
    std::printf("Mühlenkleie: %g\n", zweites->Get_Bestand(u"Mühlenkleie"_s, u"H1"_s, QDate(2025, 6, 30)));
    zweites->Get_Bestand(u"Weizen"_s, u"H1"_s, QDate(2019, 6, 30)); // there is no such year: a message

    try {
        lager->LagerbestandRechnen();
    } catch (const jet::Error& fehler) {
        std::printf("Fehler %d: %s\n", int(fehler.number()), fehler.what());
    }
}

} // namespace

int main(int, char* argv[])
{
    QPluginLoader bibliothek(QStringLiteral(ZABLAGER_LIBRARY));
    auto* const zablager = qobject_cast<IZablager*>(bibliothek.instance());
    if (!zablager) {
        std::printf("%s\n", qUtf8Printable(bibliothek.errorString()));
        return 1;
    }
    Meldungen meldungen;
    zablager->setzeMeldungen(&meldungen);
    try {
        frage(*zablager, QString::fromLocal8Bit(argv[1]));
        return 0;
    } catch (const jet::Error& fehler) { // of the database engine
        std::printf("Fehler %d: %s\n", int(fehler.number()), fehler.what());
    } catch (const sys::FileError& fehler) { // of the file system
        std::printf("Dateifehler %d: %s\n", int(fehler.number()), fehler.what());
    }
    return 1;
}
