#include "core/farm/Sicherung.h"
#include "host/Ausgabe.h"
#include "host/Befehl.h"
#include "platform/jet/Engine.h"

#include <zablager/FileError.h>

#include <QStringDecoder>
#include <QTextStream>

#include <cstdio>
#include <iostream>
#include <string>

using namespace Qt::StringLiterals;

namespace {

/// Where a statement stood in standard input.
struct Stelle {
    int anweisung = 0; ///< Its number, from 1.
    int zeile = 0;     ///< From 1, empty lines counted.
};

using Schreiber = void (*)(QTextStream&, jet::Recordset&);

jet::Error mitStelle(const jet::Error& fehler, const Stelle& stelle)
{
    QString text =
        u"Anweisung "_s + QString::number(stelle.anweisung) + u", Zeile "_s + QString::number(stelle.zeile);
    if (fehler.position() >= 0) text += u", Zeichen "_s + QString::number(fehler.position() + 1);
    return jet::Error(fehler.number(), text + u": "_s + fehler.text(), fehler.position());
}

/// Executes an action; shows the rows of a SELECT. Which of the two it is only the engine can tell.
void fuehreAus(jet::Database& datenbank, const QString& text, QTextStream& ausgabe, Schreiber schreibe)
{
    try {
        datenbank.Execute(text);
    } catch (const jet::Error& fehler) {
        if (fehler.number() != jet::ErrorNumber::CannotExecuteSelect) throw;
        schreibe(ausgabe, *datenbank.OpenRecordset(text, jet::Kind::Snapshot));
    }
}

QString alsText(const std::string& zeile)
{
    QStringDecoder utf8(QStringDecoder::Utf8,
                        QStringConverter::Flag::Stateless); // half a character is an error too
    QString text = utf8(QByteArrayView(zeile));
    if (utf8.hasError())
        throw jet::Error(jet::ErrorNumber::ConversionFailed, u"Die Zeile ist kein gültiges UTF-8."_s);
    return text;
}

void fuehreAlleAus(std::istream& eingabe, jet::Database& datenbank, QTextStream& ausgabe, Schreiber schreibe)
{
    Stelle stelle;
    std::string zeile; // read past Qt, whose lines end at a NUL
    while (std::getline(eingabe, zeile)) {
        ++stelle.zeile;
        if (QByteArrayView(zeile).trimmed().isEmpty()) continue;
        ++stelle.anweisung;
        try {
            fuehreAus(datenbank, alsText(zeile), ausgabe, schreibe);
        } catch (const jet::Error& fehler) {
            ausgabe.flush(); // before the refusal what came before it
            throw mitStelle(fehler, stelle);
        }
    }
}

void fuehreSqlAus(const QCommandLineParser& aufruf)
{
    sichereVorAenderungen();
    const QString kennwort = aufruf.value(u"kennwort"_s);
    const auto datenbank = jet::engine().OpenDatabase(aufruf.positionalArguments().constFirst(),
                                                      kennwort.isEmpty() ? QString() : u";pwd="_s + kennwort);
    QTextStream ausgabe(stdout);
    fuehreAlleAus(std::cin, *datenbank, ausgabe, aufruf.isSet(u"json"_s) ? schreibeJson : schreibeTabelle);
    ausgabe.flush();
    if (ausgabe.status() != QTextStream::Ok || std::fflush(stdout) != 0)
        throw sys::FileError(sys::FileErrorNumber::DiskFull, u"Die Ausgabe lässt sich nicht schreiben."_s);
}

} // namespace

Befehl sqlBefehl()
{
    return {
        u"sql"_s,
        u"DATEI"_s,
        u"Führt die Anweisungen der Standardeingabe aus, eine je Zeile, und zeigt die Zeilen der Abfragen."_s,
        {{u"json"_s, u"Je Zeile ein JSON-Objekt; sonst Spalten mit Tabulator und Kopfzeile, NULL leer."_s},
         {u"kennwort"_s, u"Kennwort der Datenbank."_s, u"PW"_s}},
        {},
        fuehreSqlAus};
}
