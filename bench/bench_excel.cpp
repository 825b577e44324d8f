// The spreadsheet transfer: the movement journal in its grid to the finished .xlsx file.

#include "bench/Bare.h"
#include "bench/Messbetrieb.h"
#include "bench/Messbildschirm.h"
#include "bench/Speicher.h"
#include "core/Modulzustand.h"
#include "overview/Ansichten.h"
#include "platform/controls/DataControl.h"
#include "platform/controls/DataGrid.h"
#include "platform/family/GridExport.h"
#include "platform/sheet/CompletePackage.h"

#include <QFile>
#include <QFileInfo>

#include <xlsxwriter.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double MiB = 1024 * 1024;
constexpr double HoechstensDazu = 16 * MiB; // the rows themselves take five times as much
constexpr int Aufwaermzeilen = 500;

bool weiter(qsizetype, qsizetype)
{
    return true;
}

/// The journal in its grid, as the main screen shows it.
class Ansicht {
public:
    explicit Ansicht(const Messbetrieb& betrieb)
    {
        m_daten.setDatabaseName(betrieb.journaldatei(Messbetrieb::ErstesJahr));
        m_daten.setConnect(modulzustand().Lagerpasswort);
        richteJournalEin(m_daten, m_liste);
        m_liste.setTitle(u"Journal"_s);
        m_daten.Refresh();
    }

    const DataGrid& liste() const { return m_liste; }
    void zeigeNur(int zeilen)
    {
        m_daten.setRecordSource(u"Select TOP "_s + QString::number(zeilen) +
                                u" IIF(Menge < 0, -Menge,0) as Abgang, IIF(Menge > 0, Menge,0) as Zugang, *"
                                u" FROM LAGERJOURNAL ORDER BY DATUM, ID"_s);
        m_daten.Refresh();
    }

private:
    DataControl m_daten;
    DataGrid m_liste;
};

/// The rows from SQLite's hand into the library's, and nothing else.
void schreibeBar(const Messbetrieb& betrieb, const QString& datei)
{
    BareFile journal(betrieb.journaldatei(Messbetrieb::ErstesJahr));
    BareStatement zeilen(journal,
                         "SELECT julianday(Datum)-2415018.5,Artikel,Artikelart,Buchungsart,LagerortKurzKu,"
                         "CASE WHEN Menge>0 THEN Menge END,CASE WHEN Menge<0 THEN -Menge END,Einheit,Preis,"
                         "Uberstallt_alt,Kommentar FROM LAGERJOURNAL ORDER BY Datum,ID");
    QByteArray ordner = QFile::encodeName(QFileInfo(datei).path());
    lxw_workbook_options wahl{};
    wahl.constant_memory = LXW_TRUE;
    wahl.tmpdir = ordner.data();
    lxw_workbook* const mappe = workbook_new_opt(QFile::encodeName(datei).constData(), &wahl);
    lxw_worksheet* const blatt = workbook_add_worksheet(mappe, "Journal");
    lxw_format* const tag = workbook_add_format(mappe);
    lxw_format* const menge = workbook_add_format(mappe);
    format_set_num_format(tag, "dd.mm.yyyy");
    format_set_num_format(menge, "#,##0.00");
    for (lxw_row_t zeile = 1; zeilen.step(); ++zeile) {
        for (int spalte = 0; spalte < 11; ++spalte) {
            if (zeilen.isNull(spalte)) continue;
            const bool istZahl = spalte == 0 || spalte == 5 || spalte == 6 || spalte == 8;
            const auto platz = static_cast<lxw_col_t>(spalte);
            if (istZahl)
                worksheet_write_number(blatt, zeile, platz, zeilen.number(spalte), spalte == 0 ? tag : menge);
            else
                worksheet_write_string(blatt, zeile, platz, zeilen.text(spalte).constData(), nullptr);
        }
    }
    fordere(workbook_close(mappe) == LXW_NO_ERROR, u"the bare file could not be written"_s);
}

double spitzeBeim(const std::function<void()>& arbeit)
{
    beginneSpitze();
    const double vorher = belegterSpeicher();
    arbeit();
    return speicherspitze() - vorher;
}

void messeExcel(const Umfang& umfang)
{
    const Messbetrieb betrieb(umfang.zeilen, umfang.paare);
    GridExport uebergabe;
    Ansicht ansicht(betrieb);
    const auto vollstaendig = [&] {
        const QString datei = uebergabe.Write(ansicht.liste(), u"Journal"_s, betrieb.verzeichnis(), weiter);
        fordere(QFile::remove(datei), u"no file came of it"_s);
    };
    ansicht.zeigeNur(Aufwaermzeilen);
    vollstaendig();
    ansicht.zeigeNur(umfang.zeilen);
    fordere(ansicht.liste().rows().RecordCount() == umfang.zeilen, u"the journal is not whole"_s);
    const double dazu = spitzeBeim(vollstaendig);

    const QString unseres = uebergabe.Write(ansicht.liste(), u"Unseres"_s, betrieb.verzeichnis(), weiter);
    const QString bares = betrieb.verzeichnis() + u"/bar.xlsx"_s;
    schreibeBar(betrieb, bares);
    const auto groesse = [](const QString& datei) { return static_cast<double>(QFileInfo(datei).size()); };
    fordere(isCompletePackage(unseres) && std::abs(groesse(unseres) / groesse(bares) - 1) < 0.2,
            u"the two files do not hold the same"_s);

    Messung messung(
        u"Movement journal to .xlsx, "_s + QString::number(umfang.zeilen) + u" rows, 11 columns"_s, 1);
    messung.nimm(u"limit: its rows bare to libxlsxwriter"_s, 0, [&] { schreibeBar(betrieb, bares); });
    messung.nimm(u"rows to .xlsx file"_s, 1.25, vollstaendig);
    messung.miss(umfang.runden);
    drucke(u"  process grew by "_s + QString::number(dazu / MiB, 'f', 1) + u" MiB of at most 16.0 MiB"_s);
    fordere(dazu < HoechstensDazu, u"the transfer keeps rows in memory"_s);
}

} // namespace

int main(int argc, char** argv)
{
    return messeBildschirm(argc, argv, {100'000, 5'000, 5}, {1'000'000, 5'000, 3}, messeExcel);
}
