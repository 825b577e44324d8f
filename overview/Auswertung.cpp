#include "overview/Auswertung.h"

#include "core/Datumstext.h"
#include "core/Modulzustand.h"
#include "core/SQLTexte.h"
#include "core/Verzeichnisse.h"
#include "overview/Filter.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DataControl.h"
#include "platform/controls/DataGrid.h"
#include "platform/controls/DateCombo.h"
#include "platform/controls/GridSortieren.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/Wiring.h"
#include "platform/report/ReportZurucksetzen.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Pointer.h"

using namespace Qt::StringLiterals;

namespace {

/// What the report's formula list holds at each place. A later place wins over an earlier one of the same
/// name: the stock list sets its second heading at 9, over the one at 7.
enum Formel {
    Betriebsnummer = 0,
    Betriebsname = 1,
    Betriebsadresse = 2,
    MitSumme = 3,
    Stichdatum = 4,
    Eingrenzung = 5,
    Gruppenfeld = 6,
    Uberschrift2 = 7,
    MitGruppierung = 8,
    Bestandsuberschrift = 9,
    NullAusblenden = 10,
};

QString text(const QString& name, const QString& inhalt)
{
    return name + u" = '"_s + inhalt + u"'"_s;
}

} // namespace

QString GruppenKurzel(const QString& Gruppierung)
{
    if (Gruppierung == u"Artikelgruppe") return u"Artikelart"_s;
    if (Gruppierung == u"Lagerort") return u"Lagerortkurzku"_s;
    if (Gruppierung == u"Artikel- und Untergruppe") return u"Untergruppe"_s;
    return Gruppierung;
}

Auswertung::Auswertung(const Felder& felder, std::function<bool()> journalGezeigt,
                       std::function<bool()> filtere, QWidget* bildschirm)
    : QObject(bildschirm), m_felder(felder), m_journalGezeigt(std::move(journalGezeigt)),
      m_filtere(std::move(filtere)), Report(new report::PrintControl(bildschirm))
{
    Report->setObjectName(u"Report"_s);
    verdrahte(&felder.Command2, &QPushButton::clicked, this, &Auswertung::Command2_Click);
}

void Auswertung::Command2_Click()
{
    const sys::Hourglass warten;
    if (!m_filtere()) return; // the paper would say another restriction than its rows have
    m_datei.emplace(m_verzeichnis.path() + u"\\Lagerauswertung.mdb"_s);
    if (!m_datei->baue(SQLWhereTeil(m_felder.Journaldaten.RecordSource()), m_felder.drpJahr.Text())) return;
    report::ReportZurucksetzen(*Report);
    const bool journal = m_journalGezeigt();
    const QString formular = journal ? u"Lagerjournal.rpt"_s : u"Lagerbestand.rpt"_s;
    Report->setDocumentName((journal ? u"Bewegungsjournal "_s : u"Lagerstandsliste "_s) +
                            m_felder.drpJahr.Text());
    Report->setReportFileName(ProgrammVerzeichnis() + u"\\Report\\Lagerverwaltung\\"_s + formular);
    setzeSortierung();
    Report->setDataFiles(0, m_datei->datei());
    Report->PrintReport();
}

void Auswertung::loesche() const
{
    if (m_datei) m_datei->loesche();
}

void Auswertung::setzeSortierung()
{
    QString titel = u"Artikel"_s;
    QString feld = u"Datum"_s;
    const DataGrid& liste = m_journalGezeigt() ? m_felder.Journalliste : m_felder.BestandListe;
    for (int i = 0; i < liste.ColumnCount(); ++i) {
        if (liste.Columns(i).HeadForeColor() != QColor(Sortiermarke)) continue;
        // In sum the column of the storage places is hidden, and the list stands by article: its mark would
        // tell an order that no line has.
        const bool gezeigt = liste.Columns(i).Visible();
        titel = gezeigt ? liste.Columns(i).Caption() : u"Artikel"_s;
        feld = gezeigt ? liste.Columns(i).DataField() : u"Artikel"_s;
    }
    Report->setSortFields(0, u"+{JOURNAL."_s + feld + u"}"_s);
    setzeFormeln(titel);
}

void Auswertung::setzeFormeln(const QString& sortiertNach)
{
    const Modulzustand& zustand = modulzustand();
    const QString artikel = m_felder.drpArtikel.Text();
    Report->setFormulas(Betriebsnummer, text(u"Betriebsnummer"_s, zustand.Betriebsnummer));
    Report->setFormulas(Betriebsname, text(u"Betriebsname"_s, zustand.Betriebsname));
    Report->setFormulas(Betriebsadresse, text(u"Betriebsadresse"_s, zustand.Betriebsadresse));
    if (artikel != AlleArtikel) Report->setFormulas(MitSumme, text(u"MitSumme"_s, u"J"_s));
    Report->setFormulas(Stichdatum, text(u"Stichdatum"_s, zeitraum()));
    Report->setFormulas(Eingrenzung,
                        text(u"Eingrenzung"_s, m_felder.drpLagerOrte.Text() + u", "_s +
                                                   m_felder.drpArtikelGruppe.Text() + u", "_s + artikel +
                                                   u" im Kalenderjahr "_s + m_felder.drpJahr.Text() +
                                                   u" sortiert nach "_s + sortiertNach));
    Report->setFormulas(Uberschrift2, text(u"Uberschrift2"_s, u"Fortlaufend"_s));
    m_journalGezeigt() ? setzeJournalformeln() : setzeBestandsformeln();
}

/// What the views are restricted to. Where one of the two is no date neither counts: the paper then names the
/// whole year, not what was typed.
QString Auswertung::zeitraum() const
{
    QDate von = m_felder.VonDatum.Date();
    QDate bis = m_felder.Buchdatum.Date();
    if (!von.isValid() || !bis.isValid()) {
        const int Jahr = m_felder.drpJahr.Text().toInt();
        von = QDate(Jahr, 1, 1);
        bis = QDate(Jahr, 12, 31);
    }
    return u"Von "_s + datumText(von) + u" bis "_s + datumText(bis);
}

void Auswertung::setzeJournalformeln()
{
    Report->setFormulas(MitGruppierung, text(u"MitGruppierung"_s, u"J"_s)); // continuous, too
    if (!m_felder.SSOption2.Value()) return;
    const QString gruppierung = m_felder.DrpGruppierung.Text();
    Report->setFormulas(MitSumme, text(u"MitSumme"_s, u"J"_s));
    Report->setFormulas(Gruppenfeld, u"Gruppenfeld = {JOURNAL."_s + GruppenKurzel(gruppierung) + u"}"_s);
    Report->setFormulas(Uberschrift2, text(u"Uberschrift2"_s, u"Gruppiert nach "_s + gruppierung));
}

void Auswertung::setzeBestandsformeln()
{
    const bool inSumme = m_felder.chkNurSumme.isChecked();
    Report->setFormulas(MitGruppierung, text(u"MitGruppierung"_s, inSumme ? u"J"_s : u"N"_s));
    Report->setFormulas(Bestandsuberschrift,
                        text(u"Uberschrift2"_s, inSumme ? m_felder.drpLagerOrte.Text() + u" in Summe"_s
                                                        : u"Aufgeteilt nach Lagerorten"_s));
    Report->setFormulas(NullAusblenden,
                        text(u"NullAusblenden"_s, m_felder.chkOhneNull.isChecked() ? u"J"_s : u"N"_s));
}
