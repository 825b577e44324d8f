// Memory: of a process that has asked ten thousand different statements, and of an open journal.

#include "bench/Messbetrieb.h"
#include "bench/Messbildschirm.h"
#include "bench/Speicher.h"
#include "core/Modulzustand.h"
#include "overview/Ansichten.h"
#include "platform/controls/DataGrid.h"
#include "platform/jet/Engine.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int Anweisungen = 10'000;
constexpr double MiB = 1024 * 1024;
constexpr double HoechstensImProzess = 64 * MiB;
constexpr double BytesJeSchluessel = 8;
constexpr double HoechstensFach = 3;
constexpr int MehrAlsEinPaarHat = 1'000'000;    // rows
constexpr int AussagekraeftigeZeilen = 100'000; // below, what does not hang on the rows hides them

QString megabytes(double bytes)
{
    return QString::number(bytes / MiB, 'f', 1) + u" MiB"_s;
}

/// Place and quantity of the rows of a pair, or their sum; with kind 1 other places of the article too. No
/// two are alike in what the engine keeps: names differ, not only values.
QString anweisung(int nummer, const QString& artikel, const QString& lagerort)
{
    const QString n = QString::number(nummer);
    const QString gesucht =
        u" WHERE Artikel = '"_s + artikel + u"' And LagerortKurzKu = '"_s + lagerort + u"'"_s;
    switch (nummer % 3) {
    case 0:
        return u"SELECT LagerortKurzKu, Sum(Menge) AS S"_s + n + u" FROM Lagerjournal"_s + gesucht +
               u" GROUP BY LagerortKurzKu"_s;
    case 1:
        return u"SELECT J"_s + n + u".LagerortKurzKu, Sum(Menge) FROM Lagerjournal AS J"_s + n +
               u" WHERE Artikel = '"_s + artikel + u"' GROUP BY LagerortKurzKu ORDER BY 1"_s;
    default:
        return u"SELECT TOP "_s + QString::number(MehrAlsEinPaarHat + nummer) +
               u" LagerortKurzKu, Menge FROM Lagerjournal"_s + gesucht + u" ORDER BY Datum"_s;
    }
}

double bestand(jet::Database& journal, const QString& anweisung, const QString& lagerort)
{
    double summe = 0;
    const auto zeilen = journal.OpenRecordset(anweisung, jet::Kind::Snapshot);
    for (; !zeilen->Eof(); zeilen->MoveNext())
        if ((*zeilen)[0].toText() == lagerort) summe += (*zeilen)[1].toDouble();
    return summe;
}

void messeAnweisungen(const Messbetrieb& betrieb, const Umfang& umfang)
{
    const auto journal = jet::engine().OpenDatabase(betrieb.journaldatei(Messbetrieb::ErstesJahr));
    const auto summen = Musterjournal(Messbetrieb::ErstesJahr, umfang.zeilen, umfang.paare).summen();
    beginneSpitze();
    const double vorher = belegterSpeicher();
    for (int i = 1; i <= Anweisungen; ++i) {
        const int paar = i % umfang.paare;
        const QString frage = anweisung(i, Musterjournal::artikel(paar), Musterjournal::lagerort(paar));
        const double ist = bestand(*journal, frage, Musterjournal::lagerort(paar));
        fordere(std::abs(ist - summen[static_cast<std::size_t>(paar)]) < 1e-6, u"a wrong answer: "_s + frage);
    }
    drucke(QString::number(Anweisungen) + u" different statements, "_s + QString::number(umfang.zeilen) +
           u" rows"_s);
    drucke(u"  process before "_s + megabytes(vorher) + u", after "_s + megabytes(belegterSpeicher()) +
           u", at its peak "_s + megabytes(speicherspitze()) + u" of at most "_s +
           megabytes(HoechstensImProzess));
    fordere(speicherspitze() < HoechstensImProzess, u"too much memory for ten thousand statements"_s);
}

int letzterMonat(const jet::Recordset& journal)
{
    const auto& felder = journal.Fields();
    const auto datum =
        std::find_if(felder.begin(), felder.end(), [](const auto& feld) { return feld.name == u"Datum"; });
    const auto zeile = journal.RowAt(journal.RecordCount() - 1);
    return (*zeile)[static_cast<std::size_t>(datum - felder.begin())].toDate().month();
}

/// The memory that `oeffne` takes for a journal.
void messeOffenes(const QString& titel, const Umfang& umfang, const std::function<void()>& oeffne,
                  const std::function<const jet::Recordset&()>& journal)
{
    const double vorher = vergebenerSpeicher();
    oeffne();
    const double jeZeile = (vergebenerSpeicher() - vorher) / umfang.zeilen;
    fordere(journal().RecordCount() == umfang.zeilen && letzterMonat(journal()) == 12,
            u"the open journal is not whole"_s);
    drucke(titel + u", "_s + QString::number(umfang.zeilen) + u" rows; limit: 8 bytes a row, the keys"_s);
    drucke(u"  "_s + QString::number(jeZeile, 'f', 1) + u" bytes a row  "_s +
           QString::number(jeZeile / BytesJeSchluessel, 'f', 2) + u"x of at most "_s +
           QString::number(HoechstensFach) + u"x"_s);
    fordere(umfang.zeilen < AussagekraeftigeZeilen || jeZeile <= HoechstensFach * BytesJeSchluessel,
            u"too much memory for an open journal"_s);
}

void messeJournal(const Messbetrieb& betrieb, const Umfang& umfang)
{
    const auto datei = jet::engine().OpenDatabase(betrieb.journaldatei(Messbetrieb::ErstesJahr));
    const auto oeffne = [&] { return datei->OpenRecordset(u"SELECT * FROM LAGERJOURNAL ORDER BY Datum"_s); };
    oeffne(); // what SQLite keeps of the file in memory is there from now on
    std::unique_ptr<jet::Recordset> journal;
    messeOffenes(
        u"Open journal"_s, umfang, [&] { journal = oeffne(); },
        [&]() -> const jet::Recordset& { return *journal; });
}

/// The same in the grid of the main screen, with the columns of the view.
void messeJournalliste(const Messbetrieb& betrieb, const Umfang& umfang)
{
    DataControl daten;
    DataGrid liste;
    daten.setDatabaseName(betrieb.journaldatei(Messbetrieb::ErstesJahr));
    daten.setConnect(modulzustand().Lagerpasswort);
    richteJournalEin(daten, liste);
    const QString alles = daten.RecordSource();
    const auto datei = jet::engine().OpenDatabase(daten.DatabaseName(), daten.Connect());
    datei->OpenRecordset(alles); // what SQLite keeps of the file in memory is there from now on
    const auto zeige = [&](const QString& quelle) {
        daten.setRecordSource(quelle);
        daten.Refresh();
        if (daten.RecordCount() > 0) daten.MoveLast();
        QCoreApplication::processEvents();
    };
    zeigeBisGemalt(liste);
    zeige(u"SELECT *, 0 AS Zugang, 0 AS Abgang FROM LAGERJOURNAL WHERE ID < 0"_s);
    messeOffenes(
        u"Open journal in its grid"_s, umfang, [&] { zeige(alles); },
        [&]() -> const jet::Recordset& { return daten.Recordset(); });
}

void messeSpeicher(const Umfang& umfang)
{
    const Messbetrieb betrieb(umfang.zeilen, umfang.paare);
    messeAnweisungen(betrieb, umfang);
    jet::engine().release();
    messeJournal(betrieb, umfang);
    messeJournalliste(betrieb, umfang);
}

} // namespace

int main(int argc, char** argv)
{
    return messeBildschirm(argc, argv, {100'000, 5'000, 1}, {1'000'000, 5'000, 1}, messeSpeicher);
}
