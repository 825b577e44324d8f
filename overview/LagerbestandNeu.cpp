#include "overview/LagerbestandNeu.h"

#include "ui_LagerbestandNeu.h"

#include "core/Journaldatei.h"
#include "core/Modulzustand.h"
#include "delivery/LieferscheindruckForm.h"
#include "overview/Ansichten.h"
#include "overview/Auswertung.h"
#include "overview/Bildschirmzustand.h"
#include "overview/Buchungsbefehle.h"
#include "overview/Buchungssprung.h"
#include "overview/Filterleiste.h"
#include "overview/GruppierungLaden.h"
#include "overview/Hilfetaste.h"
#include "overview/Jahreswahl.h"
#include "overview/Journalmenue.h"
#include "overview/Loeschung.h"
#include "overview/Menueleiste.h"
#include "overview/Registerbefehl.h"
#include "overview/Ruecknahmebefehl.h"
#include "overview/Spaltenbreiten.h"
#include "overview/Tabellenuebergabe.h"
#include "overview/Tastenbefehle.h"
#include "overview/Vorjahr.h"
#include "overview/dateien/Pruefbefehl.h"
#include "overview/inventur/Inventurbefehl.h"
#include "overview/jahresliste/Jahresbefehl.h"
#include "overview/stammdaten/Stammdatenbefehl.h"
#include "overview/umbenennung/Umbenennungsbefehl.h"
#include "overview/verlauf/Verlaufsbefehl.h"
#include "platform/controls/RowIds.h"
#include "platform/controls/TasteUmsetzen.h"
#include "platform/controls/WindowMemory.h"
#include "platform/controls/Wiring.h"
#include "platform/system/Application.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Pointer.h"

#include <QKeyEvent>
#include <QScopeGuard>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

constexpr int BreiteKleinerBildschirme = 800; // pixels; there the screen takes all of it
constexpr QSize Entwurfsgroesse(1000, 700);

} // namespace

LagerbestandNeu::LagerbestandNeu(QWidget* parent)
    : QDialog(parent, Qt::Window | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                          Qt::WindowCloseButtonHint),
      ui(std::make_unique<Ui::LagerbestandNeu>()), Journaldaten(new DataControl(this)),
      Bestanddaten(new DataControl(this))
{
    ui->setupUi(this);
    nummeriere(u"Command7"_s, {ui->Command7_0_, ui->Command7_1_});
    Journaldaten->setObjectName(u"Journaldaten"_s);
    Bestanddaten->setObjectName(u"Bestanddaten"_s);
    m_haupt.emplace(Hauptansicht{*Journaldaten, *ui->Journalliste, *Bestanddaten, *ui->BestandListe});
    errichteFilter();
    richteJournalEin(*Journaldaten, *ui->Journalliste);
    richteBestandslisteEin(*Bestanddaten, *ui->BestandListe);
    ui->KurzEingabe->setFixedWidth(2 * ui->KurzEingabe->sizeHint().height()); // one letter
    ui->KurzEingabe->setProperty("KeepsEnter", true); // it opens the mask of the code that stands there
    ui->DrpGruppierung->setListOnly(true);
    errichteBefehle();
    new FieldKeys(*this);
    Form_Load();
    verdrahteAlles(); // only now: what loading sets is no choice of the user
}

LagerbestandNeu::~LagerbestandNeu() = default;

void LagerbestandNeu::errichteFilter()
{
    m_jahr = new Jahreswahl(
        {*ui->drpJahr, *ui->Statuszeile, *Journaldaten, *Bestanddaten},
        [this](int jahr) { m_filter->zeigeJahr(jahr); }, this);
    m_filter = new Filterleiste({*ui->drpLagerOrte, *ui->drpArtikelGruppe, *ui->drpArtikel, *ui->VonDatum,
                                 *ui->Buchdatum, *ui->chkNurSumme, *ui->chkOhneNull, *ui->Statuszeile},
                                *m_haupt,
                                {[this] { m_jahr->zeigeStatus(); },
                                 [this] { ui->M_Vorjahr->setChecked(ohneVorjahr(*oeffneJournaldatei())); }},
                                this);
}

void LagerbestandNeu::errichteBefehle()
{
    const auto danach = [this](const Wiederfinden& gesucht, const QString& hinweis = {}) {
        zeigeBuchung();
        if (sucheEine(*Journaldaten, gesucht))
            m_jahr->zeigeStatus(u" · Die neue Buchung liegt außerhalb der Auswahl."_s);
        else if (!hinweis.isEmpty())
            m_jahr->zeigeStatus(u" · "_s + hinweis);
    };
    auto* const zuruecknehmen = new Ruecknahmebefehl(*Journaldaten, *ui->Journalliste, danach, this);
    const auto& sprung = *new Buchungssprung(
        {*ui->drpJahr, *ui->SSTab1, *ui->TabJournal, *Journaldaten, *ui->Journalliste},
        [this] { zeigeAlles(); }, this);
    auto* const pruefen = new Pruefbefehl(sprung, this);
    auto* const verlauf = new Verlaufsbefehl(
        *m_haupt, [this] { return journalGezeigt(); }, sprung, this);
    auto* const inventur = new Inventurbefehl([this] { aktualisiere(); }, this);
    auto* const stammdaten = new Stammdatenbefehl([this] { aktualisiere(); }, this);
    richteMenueleisteEin(*ui, *this,
                         {stammdaten, inventur, verlauf, new Jahresbefehl(this),
                          new Umbenennungsbefehl([this] { aktualisiere(); }, this), pruefen, zuruecknehmen});
    new Buchungsbefehle({*ui->KurzEingabe, *ui->DrpBuchart, *ui->Command7_0_, *ui->Command7_1_}, *m_haupt,
                        danach, this);
    m_auswertung = new Auswertung(
        {*ui->Command2, *ui->drpLagerOrte, *ui->drpArtikelGruppe, *ui->drpArtikel, *ui->drpJahr,
         *ui->VonDatum, *ui->Buchdatum, *ui->chkOhneNull, *ui->chkNurSumme, *ui->SSOption2,
         *ui->DrpGruppierung, *Journaldaten, *ui->Journalliste, *ui->BestandListe},
        [this] { return journalGezeigt(); }, [this] { return m_filter->stelleFilterSicher(); }, this);
    new Registerbefehl(
        {*ui->M_PflanzschPrufen, *ui->drpLagerOrte, *ui->drpArtikelGruppe, *ui->drpArtikel, *ui->drpJahr,
         *ui->VonDatum, *ui->Buchdatum, *Bestanddaten},
        [this] { return m_filter->liesNeu(); }, this);
    new Loeschung(*ui->Command4, *Journaldaten, *ui->Journalliste, danach, this);
    new Journalmenue(*ui->Journalliste, *ui->Command7_1_, *ui->Command4, {verlauf, zuruecknehmen}, this);
    new Tabellenuebergabe(*ui->ExcelButton, *ui->Journalliste, *ui->Command3, *ui->BestandListe, this);
    new Tastenbefehle(*ui, {[this] { aktualisiere(); }, [this] { zeigeAlles(); }}, *this);
    new Hilfetaste(*ui->M_Hilfe, *this);
}

void LagerbestandNeu::verdrahteAlles()
{
    m_filter->verdrahteFelder();
    verdrahte(ui->drpJahr, &ComboBox::Click, this, &LagerbestandNeu::drpJahr_Click);
    verdrahte(ui->SSTab1, &QTabWidget::currentChanged, this, &LagerbestandNeu::SSTab1_Click);
    const auto sortiere = [this](const DataControl& daten, void (*wie)(const Hauptansicht&, int),
                                 int spalte) {
        const sys::Hourglass warten;
        const bool ungefiltert = brauchtFilter(daten);
        wie(*m_haupt, spalte);
        if (ungefiltert) m_filter->FilterEinstellen();
    };
    verdrahte(ui->Journalliste, &DataGrid::HeadClick, this,
              [=, this](int spalte) { sortiere(*Journaldaten, sortiereJournal, spalte); });
    verdrahte(ui->BestandListe, &DataGrid::HeadClick, this,
              [=, this](int spalte) { sortiere(*Bestanddaten, sortiereBestandsliste, spalte); });
    verdrahte(ui->Command5, &QPushButton::clicked, this,
              [this] { LieferscheindruckForm(m_jahr->gewaehltesJahr(), this).exec(); });
    verdrahte(ui->M_Vorjahr, &QAction::triggered, this, &LagerbestandNeu::M_Vorjahr_Click);
    verdrahte(ui->Command1, &QPushButton::clicked, this, [this] { close(); });
}

void LagerbestandNeu::Form_Load()
{
    const sys::Hourglass warten;
    // Before the first refresh, whose row counts are to be shown.
    verdrahte(Journaldaten, &DataControl::Reposition, this, &LagerbestandNeu::Journaldaten_Reposition);
    verdrahte(Bestanddaten, &DataControl::Reposition, this,
              [this] { zeigeZeilenzahl(*Bestanddaten, *ui->BestandListe, u"Artikel"_s, u"Artikel"_s); });
    sys::underErrorReport({
        [this] {
            const Modulzustand& z = modulzustand();
            setWindowTitle(u"Lagerverwaltung des Betriebes "_s + z.Betriebsnummer + u" "_s + z.Betriebsname +
                           u", "_s + z.Betriebsadresse);
            sys::setApplicationTitle(windowTitle());
            resize(Entwurfsgroesse.boundedTo(roomFor(*this)));
            restoreWindow(*this, bildschirmzustand::Abschnitt, bildschirmzustand::Fenster);
            if (screen()->size().width() <= BreiteKleinerBildschirme) setWindowState(Qt::WindowMaximized);
        },
        [this] { m_jahr->waehle(modulzustand().Stichdatum.year()); },
        [this] { // FilterEinstellen opens the views, once
            m_jahr->binde();
            m_jahr->zeigeJahr();
        },
        [this] { m_ersteAktivierung = true; },
        [this] { stelleWiederHer(); },
        [this] { uebernimmLagerort(); },
        [this] { m_filter->FilterEinstellen(); },
        [this] { GruppierungLaden(*ui->DrpGruppierung, journalGezeigt()); },
    });
}

void LagerbestandNeu::stelleWiederHer()
{
    using namespace bildschirmzustand;
    ui->chkNurSumme->setValue(angehakt(LagerortSumme));
    ui->chkOhneNull->setValue(angehakt(OhneNull));
    ui->KurzEingabe->setText(text(LetztKurzeingabe));
    ui->DrpBuchart->setText(text(LetztBuchart));
    ui->SSOption1->setChecked(true);
    stelleSpaltenbreiten(*ui->Journalliste, text(SpaltenJournal));
    stelleSpaltenbreiten(*ui->BestandListe, text(SpaltenBestand));
    m_wiederhergestellt = true;
}

/// A host may have asked for one storage place.
void LagerbestandNeu::uebernimmLagerort()
{
    if (modulzustand().Lagername.isEmpty()) return;
    ui->drpLagerOrte->setText(modulzustand().Lagername);
    ui->chkNurSumme->setValue(1);
}

void LagerbestandNeu::Form_Activate()
{
    const auto normal = qScopeGuard(&sys::MausNormal);
    if (m_ersteAktivierung && Journaldaten->RecordCount() > 0) Journaldaten->MoveLast(); // the newest booking
    m_ersteAktivierung = false;
}

void LagerbestandNeu::Form_Unload()
{
    using namespace bildschirmzustand;
    if (!m_wiederhergestellt) return; // opening was left before: what is remembered stays
    sys::underErrorReport({
        [this] { merke(LagerortSumme, ui->chkNurSumme->isChecked()); },
        [this] { merke(OhneNull, ui->chkOhneNull->isChecked()); },
        [this] { merke(LetztKurzeingabe, ui->KurzEingabe->Text()); },
        [this] { merke(LetztBuchart, ui->DrpBuchart->Text()); },
        [this] { merke(SpaltenJournal, spaltenbreiten(*ui->Journalliste)); },
        [this] { merke(SpaltenBestand, spaltenbreiten(*ui->BestandListe)); },
        [this] { rememberWindow(*this, Abschnitt, Fenster); },
        [this] { m_auswertung->loesche(); },
    });
}

void LagerbestandNeu::drpJahr_Click()
{
    const sys::Hourglass warten;
    const auto ID = currentId(*Journaldaten);
    if (!m_jahr->wechsle()) {
        aktualisiere();
        return findId(*Journaldaten, ID);
    }
    sys::underErrorReport(
        {[this] { m_filter->fuelleFuerAnderesJahr(); }, [this] { m_filter->FilterEinstellen(); }});
    if (Journaldaten->RecordCount() > 0) Journaldaten->MoveLast();
}

/// The whole year again; what only shapes the stock list stays.
void LagerbestandNeu::zeigeAlles()
{
    m_filter->waehleAlle();
    if (m_jahr->istGebunden()) m_jahr->zeigeJahr();
    aktualisiere();
}

/// Shows what the file and its lists hold now; opens the year when that failed before.
void LagerbestandNeu::aktualisiere()
{
    const sys::Hourglass warten;
    const bool zuerst = !Journaldaten->isOpen();
    sys::underErrorReport({
        [this] {
            if (!m_jahr->istGebunden()) m_jahr->LagerDateiEinstellen();
        },
        [this] { m_filter->AuswahllistenFullen(); },
        [this] { m_filter->FilterEinstellen(); },
    });
    if (zuerst && Journaldaten->RecordCount() > 0) Journaldaten->MoveLast(); // the newest booking
}

/// What was booked is to be seen at once.
void LagerbestandNeu::zeigeBuchung()
{
    if (!Journaldaten->isOpen()) return aktualisiere();
    const sys::Hourglass warten;
    sys::underErrorReport({[this] { m_filter->FilterEinstellen(); }});
    m_filter->fuelleListenDanach();
}

/// A failed write leaves the tick as it was.
void LagerbestandNeu::M_Vorjahr_Click(bool ohne)
{
    const sys::Hourglass warten;
    const auto ID = currentId(*Journaldaten);
    if (sys::underErrorReport({[&] { setzeOhneVorjahr(*oeffneJournaldatei(), ohne); }}) != sys::Outcome::Done)
        return ui->M_Vorjahr->setChecked(!ohne);
    sys::underErrorReport({
        [this] { m_jahr->schreibeWeiter(); },
        [this] { m_jahr->LagerDateiEinstellen(); },
        [this] { m_filter->FilterEinstellen(); },
        [&] { findId(*Journaldaten, ID); },
    });
}

void LagerbestandNeu::Journaldaten_Reposition()
{
    for (QPushButton* befehl : {ui->Command7_1_, ui->Command4})
        befehl->setEnabled(Journaldaten->RecordCount() > 0);
    zeigeZeilenzahl(*Journaldaten, *ui->Journalliste, u"Bewegung"_s, u"Bewegungen"_s);
}

bool LagerbestandNeu::journalGezeigt() const
{
    return ui->SSTab1->currentWidget() == ui->TabJournal;
}

void LagerbestandNeu::SSTab1_Click()
{
    const bool journal = journalGezeigt();
    GruppierungLaden(*ui->DrpGruppierung, journal);
    ui->Command2->setText(journal ? u"Bewegungsjournal drucken"_s : u"Lagerstandsliste drucken"_s);
    ui->Frame3->setVisible(journal);
}

bool LagerbestandNeu::event(QEvent* event)
{
    if (event->type() == QEvent::Paint) m_filter->nachErstemMalen();
    if (event->type() == QEvent::WindowActivate) sys::underErrorReport({[this] { Form_Activate(); }});
    return QDialog::event(event);
}

void LagerbestandNeu::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) return; // a slip of the finger must not close a day's screen
    QDialog::keyPressEvent(event);
}

void LagerbestandNeu::done(int result)
{
    Form_Unload();
    QDialog::done(result);
}
