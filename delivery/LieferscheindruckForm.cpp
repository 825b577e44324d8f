#include "delivery/LieferscheindruckForm.h"

#include "core/farm/Schema.h"
#include "ui_LieferscheindruckForm.h"

#include "core/Journaldatei.h"
#include "core/Verzeichnisse.h"
#include "delivery/Liefereinstellungen.h"
#include "delivery/Lieferscheindatei.h"
#include "delivery/Lieferscheinnummern.h"
#include "platform/controls/FocusWhole.h"
#include "platform/controls/RowIds.h"
#include "platform/controls/TasteUmsetzen.h"
#include "platform/controls/Tasten.h"
#include "platform/controls/WindowMemory.h"
#include "platform/controls/Wiring.h"
#include "platform/report/ReportZurucksetzen.h"
#include "platform/system/Blanks.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Files.h"
#include "platform/system/Messages.h"
#include "platform/system/Pointer.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize Entwurfsgroesse(800, 580);
const QString Abschnitt = u"Lagerverwaltung"_s; // of the user's settings

QString formularordner()
{
    return ProgrammVerzeichnis() + u"\\Report\\Lagerverwaltung\\Lieferscheine\\"_s;
}

} // namespace

LieferscheindruckForm::LieferscheindruckForm(int Jahr, QWidget* parent)
    : QDialog(parent), m_jahr(Jahr), ui(std::make_unique<Ui::LieferscheindruckForm>()),
      Liefereinstellungen(new DataControl(this)), Lieferscheindaten(new DataControl(this)),
      Report(new report::PrintControl(this))
{
    ui->setupUi(this);
    nummeriere(u"Text2"_s, {ui->Text2_0_, ui->Text2_1_, ui->Text2_2_});
    Liefereinstellungen->setObjectName(u"Liefereinstellungen"_s);
    Lieferscheindaten->setObjectName(u"Lieferscheindaten"_s);
    Report->setObjectName(u"Report"_s);
    Report->setWindowTitle(u"ZAB - Lagerverwaltung: Auswertung"_s);
    richteListeEin();
    bindeEinstellungen();
    new FieldKeys(*this);
    verdrahte(Lieferscheindaten, &DataControl::Reposition, this,
              &LieferscheindruckForm::Lieferscheindaten_Reposition);
    verdrahte(ui->SSDBGrid1, &DataGrid::DblClick, this, [this] {
        if (ui->Command2->isVisible()) ui->Command2->click();
    });
    verdrahte(ui->Command2, &QPushButton::clicked, this, &LieferscheindruckForm::Command2_Click);
    verdrahte(ui->Command1, &QPushButton::clicked, this, [this] { close(); });
    bindeTaste(Taste::NeuLesen, *this, [this] { Form_Load(); });
    bindeGruppen(*this, {ui->drpFormular, ui->Text2_0_, ui->Text1, ui->SSDBGrid1, ui->Command2});
    nenneTaste(Taste::Drucken, *ui->Command2);
    bindeTaste(Taste::Drucken, *this, [this] {
        if (ui->Command2->isVisible()) ui->Command2->click();
    });
    Lieferscheindaten_Reposition(); // nothing is read yet
    Form_Load();
    resize(Entwurfsgroesse.boundedTo(roomFor(*this)));
    restoreWindow(*this, Abschnitt, u"Fenster"_s + objectName());
    ui->SSDBGrid1->setFocus(); // head and form are mostly those of the last time
}

LieferscheindruckForm::~LieferscheindruckForm() = default;

void LieferscheindruckForm::richteListeEin()
{
    DataGrid& liste = *ui->SSDBGrid1;
    liste.addColumn(u"Lieferdatum"_s, u"DATUM"_s);
    liste.addColumn(u"Empfänger"_s, u"UBERSTALLT_ALT"_s);
    liste.addColumn(u"Artikel"_s, u"Artikel"_s);
    liste.addColumn(u"Menge"_s, u"Menge"_s, u"##,##0.00"_s);
    liste.addColumn(u"Lieferscheinnr."_s, u"Lieferscheinnummer"_s);
    liste.setDataSource(*Lieferscheindaten);
    liste.horizontalHeader()->setStretchLastSection(false);
    liste.horizontalHeader()->setSectionResizeMode(2, QHeaderView::Stretch); // the article takes the rest
    liste.setAllowDelete(false);
    liste.setSelectionMode(QAbstractItemView::SingleSelection); // the note of one delivery is printed
    liste.setEmptyText(u"Keine Verkäufe mit einem Empfänger in diesem Jahr"_s);
    liste.setClosedText(
        u"Die Lieferungen konnten nicht gelesen werden. Die Taste F5 liest sie noch einmal."_s);
}

void LieferscheindruckForm::bindeEinstellungen()
{
    ui->drpFormular->bindTo(*Liefereinstellungen, u"Lieferscheinformular"_s);
    ui->Text2_0_->bindTo(*Liefereinstellungen, u"LieferscheinZeile1"_s);
    ui->Text2_1_->bindTo(*Liefereinstellungen, u"LieferscheinZeile2"_s);
    ui->Text2_2_->bindTo(*Liefereinstellungen, u"LieferscheinZeile3"_s);
    ui->Text1->bindTo(*Liefereinstellungen, u"LieferscheinZusatztext"_s);
    ui->chkPreis->bindTo(*Liefereinstellungen, u"LieferscheinMitPreis"_s);
}

/// F5 does it again: rows of other programs are listed and numbered, a file that was locked is tried once
/// more.
void LieferscheindruckForm::Form_Load()
{
    const sys::Hourglass warten;
    if (Lieferscheinnummern(m_jahr).vergib()) lies();
    // Without a row that keeps it, typing would be lost.
    for (QWidget* eingabe :
         std::initializer_list<QWidget*>{ui->drpFormular, ui->chkPreis, ui->FrmKopf, ui->Text1})
        eingabe->setEnabled(Liefereinstellungen->RecordCount() > 0);
}

void LieferscheindruckForm::lies()
{
    const auto ID = currentId(*Lieferscheindaten);
    sys::underErrorReport({
        [this] { ergaenzeLiefereinstellungen(*oeffneJournal(m_jahr)); },
        [this] { schreibeEinstellungen(); }, // what was typed before F5
        [this] {
            Liefereinstellungen->setRecordSource(u"Liefereinstellungen"_s);
            oeffne(*Liefereinstellungen);
        },
        [this] {
            Lieferscheindaten->setRecordSource(
                u"SELECT * FROM LAGERJOURNAL WHERE BUCHUNGSART = 'Verkauf'"
                u" AND LEN(TRIM(IIF(ISNULL(UBERSTALLT_ALT),'',UBERSTALLT_ALT))) > 0 ORDER BY DATUM,"
                u" UBERSTALLT_ALT"_s);
            oeffne(*Lieferscheindaten);
        },
        [&] { sucheEin(ID); },
        [this] { fuelleFormulare(); },
    });
}

/// The delivery that was chosen before, else the newest.
void LieferscheindruckForm::sucheEin(std::optional<qint64> ID)
{
    if (Lieferscheindaten->RecordCount() == 0) return;
    findId(*Lieferscheindaten, ID);
    if (!ID || Lieferscheindaten->NoMatch()) Lieferscheindaten->MoveLast();
}

void LieferscheindruckForm::schreibeEinstellungen()
{
    if (Liefereinstellungen->RecordCount() > 0) Liefereinstellungen->UpdateRecord();
}

void LieferscheindruckForm::oeffne(DataControl& daten) const
{
    binde(daten, Dateiart::Lager, Journaldatei(m_jahr), verbindung(Dateiart::Lager));
    daten.Refresh();
}

void LieferscheindruckForm::fuelleFormulare()
{
    ui->drpFormular->Clear();
    for (const QString& formular : sys::Dir(formularordner() + u"*.rpt"_s))
        ui->drpFormular->AddItem(formular);
}

void LieferscheindruckForm::Form_Activate()
{
    if (ui->drpFormular->isEnabled() && sys::trimBlanks(ui->drpFormular->Text()).isEmpty())
        ui->drpFormular->enterText(u"Standardlieferschein.rpt"_s); // as if typed: it is kept
    if (!m_ersteAktivierung) return;
    m_ersteAktivierung = false; // the message below gives the window back active
    if (!Lieferscheindaten->isOpen()) return;
    if (Lieferscheindaten->RecordCount() > 0) return meldeVerkaeufeOhneDatum();
    sys::messages().show(
        u"Lieferscheine können für Verkaufsbuchungen ausgedruckt werden. Dabei werden Bewegungen"
        u" desselben Empfängers und desselben Datums zusammengefasst."_s,
        sys::Information);
}

void LieferscheindruckForm::meldeVerkaeufeOhneDatum() const
{
    const QStringList verkaeufe = verkaeufeOhneDatum(m_jahr);
    if (verkaeufe.isEmpty()) return;
    sys::messages().show(
        u"Verkäufe ohne Datum bekommen keine Lieferscheinnummer:\r\r"_s + verkaeufe.join(u'\r') +
            u"\r\rTragen Sie das Datum im Bewegungsjournal nach. Es zeigt sie, wenn dort \"Von Datum\""
            u" geleert ist."_s,
        sys::Information);
}

void LieferscheindruckForm::Lieferscheindaten_Reposition()
{
    const qsizetype zeilen = Lieferscheindaten->RecordCount();
    ui->Command2->setVisible(zeilen > 0);
    ui->SSDBGrid1->setCaption(Lieferscheindaten->isOpen() ? QString::number(zeilen) + u" Lieferung(en)"_s
                                                          : u"Nicht gelesen"_s);
}

void LieferscheindruckForm::Command2_Click()
{
    const sys::Hourglass warten;
    if (sys::underErrorReport({[this] { schreibeEinstellungen(); }}) == sys::Outcome::Left) return;
    const Lieferschein schein = gewaehlterLieferschein();
    if (schein.Datum.isNull())
        return weiseAb(u"Dieser Verkauf hat kein Datum. Tragen Sie es im Bewegungsjournal nach."_s);
    // Its lines would be told by day and recipient alone, whatever else was booked for him that day.
    if (schein.Nummer == 0)
        return weiseAb(u"Diese Lieferung hat noch keine Nummer. Die Taste F5 gibt ihr eine."_s);
    const QString formular = ui->drpFormular->Text();
    if (sys::trimBlanks(formular).isEmpty() || !sys::Exist(formularordner() + formular)) {
        weiseAb(u"Bitte wählen Sie ein gültiges Lieferscheinformular aus."_s);
        return focusWhole(*ui->drpFormular);
    }
    if (!baueLieferscheindatei(druckdatei(), m_jahr, schein)) return;
    report::ReportZurucksetzen(*Report);
    Report->setDataFiles(0, druckdatei());
    Report->setReportFileName(formularordner() + formular);
    Report->setDocumentName(u"Lieferschein "_s + QString::number(schein.Nummer) + u' ' +
                            sys::trimBlanks(schein.Empfaenger.toText()));
    Report->PrintReport();
}

void LieferscheindruckForm::weiseAb(const QString& grund)
{
    sys::MausNormal();
    sys::critical(grund);
}

/// The delivery of the list's current row under the head as the fields show it.
Lieferschein LieferscheindruckForm::gewaehlterLieferschein() const
{
    const jet::Recordset& verkauf = Lieferscheindaten->Recordset();
    return {.Datum = verkauf[u"DATUM"],
            .Empfaenger = verkauf[u"UBERSTALLT_ALT"],
            .Nummer = verkauf[u"Lieferscheinnummer"].toLong(),
            .Zeile1 = ui->Text2_0_->Text(),
            .Zeile2 = ui->Text2_1_->Text(),
            .Zeile3 = ui->Text2_2_->Text(),
            .Zusatztext = ui->Text1->Text(),
            .mitPreis = ui->chkPreis->Value() == 1};
}

QString LieferscheindruckForm::druckdatei() const
{
    return m_arbeitsverzeichnis.path() + u"\\Lagerlieferschein.mdb"_s;
}

bool LieferscheindruckForm::event(QEvent* event)
{
    const auto aktiviere = [this] { sys::underErrorReport({[this] { Form_Activate(); }}); };
    // Later, so that a message finds the window painted.
    if (event->type() == QEvent::WindowActivate)
        QMetaObject::invokeMethod(this, aktiviere, Qt::QueuedConnection);
    return QDialog::event(event);
}

void LieferscheindruckForm::done(int result)
{
    if (sys::underErrorReport({[this] { schreibeEinstellungen(); }}) == sys::Outcome::Left) return;
    sys::underErrorReport({
        [this] { rememberWindow(*this, Abschnitt, u"Fenster"_s + objectName()); },
        [this] { loescheLieferscheindatei(druckdatei()); },
    });
    QDialog::done(result);
}
