// Printing: the movement journal of a year to a PDF file, from the rows of the evaluation file to the
// finished file.

#include "bench/Messbetrieb.h"
#include "bench/Messung.h"
#include "bench/Speicher.h"
#include "platform/jet/Engine.h"
#include "platform/report/Output.h"
#include "platform/report/Paginator.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr double MiB = 1024 * 1024;
constexpr double HoechstensImProzess = 200 * MiB;

bool weiter(qsizetype, qsizetype)
{
    return true;
}

/// The evaluation file of a year, as the main screen builds it.
QString auswertungsdatei(const Messbetrieb& betrieb)
{
    QString datei = betrieb.verzeichnis() + u"/Lagerauswertung.mdb"_s;
    jet::engine().CreateDatabase(datei, u";LANGID=0x0409;CP=1252;COUNTRY=0"_s)->Close();
    const auto journal = jet::engine().OpenDatabase(betrieb.journaldatei(Messbetrieb::ErstesJahr));
    journal->Execute(
        u"Select IIF(Menge < 0, -Menge,0) as Abgang, IIF(Menge > 0, Menge,0) as Zugang, LAGERJOURNAL.*"
        " INTO JOURNAL IN '"_s +
        datei + u"' FROM LAGERJOURNAL"_s);
    const auto auswertung = jet::engine().OpenDatabase(datei);
    auswertung->Execute(u"ALTER TABLE Journal ADD COLUMN Gruppe Text(100)"_s);
    auswertung->Execute(u"ALTER TABLE Journal ADD COLUMN Giftigkeit Text(255)"_s);
    return datei;
}

report::Job auftrag(const QString& datei)
{
    report::Job auftrag;
    auftrag.reportFile = QStringLiteral(SHIPPED_FORMS "/Lagerjournal.rpt");
    auftrag.dataFiles[0] = datei;
    auftrag.formulas = {{0, u"Betriebsnummer = '4711'"_s},
                        {1, u"Betriebsname = 'Messhof'"_s},
                        {5, u"Eingrenzung = 'Alle Lagerorte, Alle Artikelgruppen, Alle Artikel'"_s},
                        {7, u"Uberschrift2 = 'Fortlaufend'"_s}};
    auftrag.sortFields[0] = u"+{JOURNAL.Datum}"_s;
    return auftrag;
}

/// The texts of the pages, at their places and in their fonts, and nothing else.
void schreibeBar(const report::Document& bericht, const QString& datei)
{
    QPdfWriter pdf(datei);
    pdf.setResolution(static_cast<int>(report::DotsPerInch));
    pdf.setPageLayout(bericht.layout);
    QPainter maler(&pdf);
    bool erste = true;
    for (const report::Page& seite : bericht.pages) {
        if (!std::exchange(erste, false)) pdf.newPage();
        int schrift = -1;
        for (const report::TextLine& zeile : seite.lines) {
            if (schrift != zeile.font)
                maler.setFont(bericht.fonts[static_cast<std::size_t>(zeile.font)].font);
            schrift = zeile.font;
            maler.drawText(QPointF(zeile.x, zeile.top), zeile.text);
        }
    }
}

void pruefe(const report::Document& bericht, const Umfang& umfang)
{
    qsizetype tage = 0;
    for (const report::Page& seite : bericht.pages)
        for (const report::TextLine& zeile : seite.lines)
            tage += zeile.text.endsWith(u".2020") && zeile.text.size() == 10;
    fordere(tage == umfang.zeilen, u"rows are missing on the pages"_s);
    const auto& letzte = bericht.pages.back().lines;
    const QString fuss = u"Seite "_s + QString::number(bericht.pages.size()) + u" von "_s +
                         QString::number(bericht.pages.size());
    fordere(letzte.back().text == fuss, u"the last page is not the last one"_s);
}

void messeDruck(const Umfang& umfang)
{
    const Messbetrieb betrieb(umfang.zeilen, umfang.paare);
    const report::Job druck = auftrag(auswertungsdatei(betrieb));
    const QString pdf = betrieb.verzeichnis() + u"/druck.pdf"_s;
    const auto vollstaendig = [&] { report::writePdf(*report::setPages(druck, weiter), pdf, weiter); };

    beginneSpitze();
    vollstaendig();
    const double spitze = speicherspitze();
    const report::Document bericht = *report::setPages(druck, weiter);
    pruefe(bericht, umfang);

    Messung messung(u"Movement journal to PDF, "_s + QString::number(umfang.zeilen) + u" rows, "_s +
                        QString::number(bericht.pages.size()) + u" pages"_s,
                    1);
    messung.nimm(u"limit: its texts through a bare QPdfWriter"_s, 0,
                 [&] { schreibeBar(bericht, betrieb.verzeichnis() + u"/bar.pdf"_s); });
    messung.nimm(u"rows to PDF file"_s, 1.2, vollstaendig);
    messung.miss(umfang.runden);
    drucke(u"  process at its peak "_s + QString::number(spitze / MiB, 'f', 1) +
           u" MiB of at most 200.0 MiB"_s);
    fordere(spitze < HoechstensImProzess, u"too much memory for a printed journal"_s);
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    return messe(QGuiApplication(argc, argv), {10'000, 1'000, 10}, {100'000, 5'000, 3}, messeDruck);
}
