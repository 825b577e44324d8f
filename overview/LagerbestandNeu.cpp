#include "overview/LagerbestandNeu.h"

#include "ui_LagerbestandNeu.h"

#include "core/JahresUbertrag.h"
#include "core/Journaldatei.h"
#include "core/Modulzustand.h"
#include "core/Verzeichnisse.h"
#include "core/farm/Schema.h"
#include "delivery/LieferscheindruckForm.h"
#include "overview/Ansichten.h"
#include "overview/Auswertung.h"
#include "overview/Bildschirmzustand.h"
#include "overview/Buchungsbefehle.h"
#include "overview/GruppierungLaden.h"
#include "overview/Hilfetaste.h"
#include "overview/Journalmenue.h"
#include "overview/Loeschung.h"
#include "overview/Menueleiste.h"
#include "overview/Registerbefehl.h"
#include "overview/Spaltenbreiten.h"
#include "overview/Statusmeldung.h"
#include "overview/Tabellenuebergabe.h"
#include "overview/Tastenbefehle.h"
#include "overview/Vorjahr.h"
#include "overview/Zeitraum.h"
#include "platform/controls/RowIds.h"
#include "platform/controls/TasteUmsetzen.h"
#include "platform/controls/WindowMemory.h"
#include "platform/controls/Wiring.h"
#include "platform/family/DatabaseFile.h"
#include "platform/system/Application.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Files.h"
#include "platform/system/Messages.h"
#include "platform/system/Pointer.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QScopeGuard>
#include <QScreen>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int BreiteKleinerBildschirme = 800; // pixels; there the screen takes all of it
constexpr QSize Entwurfsgroesse(1000, 700);

} // namespace

LagerbestandNeu::LagerbestandNeu(QWidget* parent)
    : QDialog(parent, Qt::Window | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      ui(std::make_unique<Ui::LagerbestandNeu>()), Journaldaten(new DataControl(this)),
      Bestanddaten(new DataControl(this))
{
    ui->setupUi(this);
    nummeriere(u"Command7"_s, {ui->Command7_0_, ui->Command7_1_});
    Journaldaten->setObjectName(u"Journaldaten"_s);
    Bestanddaten->setObjectName(u"Bestanddaten"_s);
    m_haupt.emplace(Hauptansicht{*Journaldaten, *ui->Journalliste, *Bestanddaten, *ui->BestandListe});
    richteJournalEin(*Journaldaten, *ui->Journalliste);
    richteBestandslisteEin(*Bestanddaten, *ui->BestandListe);
    ui->KurzEingabe->setFixedWidth(2 * ui->KurzEingabe->sizeHint().height()); // one letter
    richteMenueleisteEin(*ui, *this,
                         [this]() -> DataGrid& { return journalGezeigt() ? *ui->Journalliste : *ui->BestandListe; });
    const auto danach = [this](const Wiederfinden& gesucht) {
        aktualisiere();
        if (sucheEine(*Journaldaten, gesucht)) zeigeStatus(u" · Die neue Buchung liegt außerhalb der Auswahl."_s);
    };
    new Buchungsbefehle({*ui->KurzEingabe, *ui->DrpBuchart, *ui->Command7_0_, *ui->Command7_1_}, *m_haupt, danach,
                        this);
    m_auswertung = new Auswertung(
        {*ui->Command2, *ui->drpLagerOrte, *ui->drpArtikelGruppe, *ui->drpArtikel, *ui->drpJahr, *ui->VonDatum,
         *ui->Buchdatum, *ui->chkOhneNull, *ui->chkNurSumme, *ui->SSOption2, *ui->DrpGruppierung, *Journaldaten,
         *ui->Journalliste, *ui->BestandListe},
        [this] { return journalGezeigt(); }, [this] { return stelleFilterSicher(); }, this);
    new Registerbefehl(
        {*ui->M_PflanzschPrufen, *ui->drpLagerOrte, *ui->drpArtikelGruppe, *ui->drpArtikel, *ui->drpJahr, *ui->VonDatum,
         *ui->Buchdatum, *Bestanddaten},
        [this] {
            sys::underErrorReport({[this] { AuswahllistenFullen(); }, [this] { FilterEinstellen(); }});
            return zeigtGewaehltes();
        },
        this);
    new Loeschung(*ui->Command4, *Journaldaten, *ui->Journalliste, danach, this);
    new Journalmenue(*ui->Journalliste, *ui->Command7_1_, *ui->Command4, this);
    new Tabellenuebergabe(*ui->ExcelButton, *ui->Journalliste, *ui->Command3, *ui->BestandListe, this);
    new Tastenbefehle(*ui, {[this] { aktualisiere(); }, [this] { zeigeAlles(); }}, *this);
    new Hilfetaste(*ui->M_Hilfe, *this);
    new FieldKeys(*this);
    ui->KurzEingabe->setProperty("KeepsEnter", true); // it opens the mask of the code that stands there
    for (ComboBox* liste : {ui->drpLagerOrte, ui->drpArtikelGruppe, ui->drpArtikel, ui->drpJahr, ui->DrpGruppierung})
        liste->setListOnly(true);
    ui->drpLagerOrte->setColumns({u"Bezeichnung"_s}, 0);
    ui->drpJahr->setColumns({u"Jahr"_s}, 0);
    waehleAlle();
    Form_Load();
    verdrahteAlles(); // only now: what loading sets is no choice of the user
}

LagerbestandNeu::~LagerbestandNeu() = default;

void LagerbestandNeu::verdrahteAlles()
{
    verdrahte(ui->drpJahr, &ComboBox::DropDown, this, &LagerbestandNeu::fuelleJahre);
    verdrahte(ui->drpJahr, &ComboBox::Click, this, &LagerbestandNeu::drpJahr_Click);
    verdrahte(ui->drpLagerOrte, &ComboBox::Click, this, &LagerbestandNeu::FilterEinstellen);
    verdrahte(ui->drpArtikelGruppe, &ComboBox::Click, this, &LagerbestandNeu::drpArtikelGruppe_Click);
    verdrahte(ui->drpArtikel, &ComboBox::Click, this, &LagerbestandNeu::FilterEinstellen);
    verdrahte(ui->VonDatum, &DateCombo::Change, this, &LagerbestandNeu::FilterEinstellen);
    verdrahte(ui->Buchdatum, &DateCombo::Change, this, &LagerbestandNeu::FilterEinstellen);
    verdrahte(ui->chkOhneNull, &CheckBox::Click, this, &LagerbestandNeu::FilterEinstellen);
    verdrahte(ui->chkNurSumme, &CheckBox::Click, this, &LagerbestandNeu::FilterEinstellen);
    verdrahte(ui->SSTab1, &QTabWidget::currentChanged, this, &LagerbestandNeu::SSTab1_Click);
    const auto sortiere = [this](const DataControl& daten, void (*wie)(const Hauptansicht&, int), int spalte) {
        const sys::Hourglass warten;
        const bool ungefiltert = brauchtFilter(daten);
        wie(*m_haupt, spalte);
        if (ungefiltert) FilterEinstellen();
    };
    verdrahte(ui->Journalliste, &DataGrid::HeadClick, this,
              [=, this](int spalte) { sortiere(*Journaldaten, sortiereJournal, spalte); });
    verdrahte(ui->BestandListe, &DataGrid::HeadClick, this,
              [=, this](int spalte) { sortiere(*Bestanddaten, sortiereBestandsliste, spalte); });
    verdrahte(ui->Command5, &QPushButton::clicked, this,
              [this] { LieferscheindruckForm(gewaehltesJahr(), this).exec(); });
    verdrahte(ui->M_Vorjahr, &QAction::triggered, this, &LagerbestandNeu::M_Vorjahr_Click);
    verdrahte(ui->Command1, &QPushButton::clicked, this, [this] { close(); });
}

void LagerbestandNeu::Form_Load()
{
    const sys::Hourglass warten;
    // Before the first refresh, whose row counts are to be shown.
    verdrahte(Journaldaten, &DataControl::Reposition, this, &LagerbestandNeu::Journaldaten_Reposition);
    verdrahte(Bestanddaten, &DataControl::Reposition, this, &LagerbestandNeu::Bestanddaten_Reposition);
    sys::underErrorReport({
        [this] {
            const Modulzustand& z = modulzustand();
            setWindowTitle(u"Lagerverwaltung des Betriebes "_s + z.Betriebsnummer + u" "_s + z.Betriebsname + u", "_s +
                           z.Betriebsadresse);
            sys::setApplicationTitle(windowTitle());
            resize(Entwurfsgroesse.boundedTo(roomFor(*this)));
            restoreWindow(*this, bildschirmzustand::Abschnitt, bildschirmzustand::Fenster);
            if (screen()->size().width() <= BreiteKleinerBildschirme) setWindowState(Qt::WindowMaximized);
        },
        [this] {
            ui->drpJahr->setText(QString::number(modulzustand().Stichdatum.year()));
            fuelleJahre();
        },
        [this] { // FilterEinstellen opens the views, once
            bindeJahr();
            zeigeJahr();
        },
        [this] { m_ersteAktivierung = true; },
        [this] { stelleWiederHer(); },
        [this] { uebernimmLagerort(); },
        [this] { FilterEinstellen(); },
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

/// \throws jet::Error for what is no year: nothing may come into being or be carried forward for it.
int LagerbestandNeu::gewaehltesJahr() const
{
    const QString jahr = ui->drpJahr->Text();
    if (jahr.toInt() < 1000 || jahr.size() != 4)
        throw jet::Error(jet::ErrorNumber::InvalidArgument, u"'"_s + jahr + u"' ist kein Jahr."_s);
    return jahr.toInt();
}

/// Makes sure of the year file and lets both views know it, which show it with their next refresh.
void LagerbestandNeu::bindeJahr()
{
    Modulzustand& zustand = modulzustand();
    const QString datei = Journaldatei(gewaehltesJahr());
    const QString vorlage = vorlagedatei(ProgrammVerzeichnis());
    if (sys::Exist(vorlage)) {
        DatabaseFile jahresdatei;
        jahresdatei.setPassword(zustand.Lagerpasswort);
        jahresdatei.setFileName(datei);
        jahresdatei.setTemplate(vorlage);
        jahresdatei.Provide();
    }
    zustand.Lagerdatei = datei;
    zustand.Jahr = ui->drpJahr->Text(); // the year that masks book into, whatever the key date becomes
    for (DataControl* daten : {Journaldaten, Bestanddaten}) {
        daten->setDatabaseName(datei);
        daten->setConnect(zustand.Lagerpasswort);
    }
    if (sys::Exist(datei)) bringeAufStandWennMoeglich(Dateiart::Lager, datei, zustand.Lagerpasswort);
}

void LagerbestandNeu::zeigeJahr()
{
    m_gebundenesJahr = modulzustand().Jahr;
    const int jahr = m_gebundenesJahr.toInt();
    ui->VonDatum->setDate(QDate(jahr, 1, 1));
    ui->Buchdatum->setDate(QDate(jahr, 12, 31));
    zeigeStatus();
}

void LagerbestandNeu::zeigeStatus(const QString& hinweis)
{
    ui->Statuszeile->setText(u"Betrieb "_s + modulzustand().Betriebsnummer + u" · Lager."_s + m_gebundenesJahr +
                             hinweis);
}

void LagerbestandNeu::LagerDateiEinstellen()
{
    bindeJahr();
    for (DataControl* daten : {Journaldaten, Bestanddaten})
        daten->Refresh();
    zeigeJahr();
}

void LagerbestandNeu::fuelleJahre()
{
    ui->drpJahr->Clear();
    for (const int jahr : journaljahre())
        ui->drpJahr->AddItem(QString::number(jahr));
}

void LagerbestandNeu::AuswahllistenFullen()
{
    fuelle(filterlisten(), *oeffneJournaldatei());
}

Filterlisten LagerbestandNeu::filterlisten() const
{
    return {*ui->drpLagerOrte, *ui->drpArtikelGruppe, *ui->drpArtikel};
}

void LagerbestandNeu::FilterEinstellen()
{
    const sys::Hourglass warten;
    zeigeStatus(); // a hint was about the rows of before
    std::optional<Statusmeldung> meldung;
    if (m_liestLange) meldung.emplace(*ui->Statuszeile, u"Die Ansichten werden gelesen ..."_s);
    QElapsedTimer uhr;
    uhr.start();
    m_gezeigteEingrenzung.clear();
    markiereZeitraum(*ui->VonDatum, *ui->Buchdatum);
    const auto ausgang = sys::underErrorReport({
        [this] { // litres were once called so
            oeffneJournaldatei()->Execute(
                u"UPDATE LAGERJOURNAL SET EINHEIT = 'l' WHERE IIF(Isnull(EINHEIT),'',EINHEIT) = 'Lt'"
                u" AND ARTIKELART = 'Pflanzenschutzmittel'"_s);
            m_dateiAntwortet = true;
        },
        [this] { filtereJournal(*m_haupt, gewaehlteEingrenzung()); },
        [this] {
            if (m_gemalt) zeigeBestandsliste();
        },
        [this] {
            ui->M_Vorjahr->setChecked(ohneVorjahr(*oeffneJournaldatei()));
            m_dateiAntwortet = true;
        },
    });
    if (ausgang == sys::Outcome::Completed) m_gezeigteEingrenzung = gewaehlteEingrenzung();
    constexpr int Lange = 1000; // ms; by the last time, since nobody knows before
    m_liestLange = uhr.elapsed() > Lange;
}

QString LagerbestandNeu::gewaehlteEingrenzung() const
{
    return eingrenzung({.Lagerort = ui->drpLagerOrte->Text(),
                        .Artikelgruppe = ui->drpArtikelGruppe->Text(),
                        .Artikel = ui->drpArtikel->Text(),
                        .von = ui->VonDatum->Date(),
                        .bis = ui->Buchdatum->Date()});
}

/// A filter, a sort or a change of year that failed, or that the user left, leaves other rows on view than the fields say.
bool LagerbestandNeu::zeigtGewaehltes() const
{
    const auto gefiltert = [](const DataControl& daten) { return daten.isOpen() && !brauchtFilter(daten); };
    return gefiltert(*Journaldaten) && gefiltert(*Bestanddaten) && m_gezeigteEingrenzung == gewaehlteEingrenzung();
}

bool LagerbestandNeu::stelleFilterSicher()
{
    if (!zeigtGewaehltes()) FilterEinstellen();
    return zeigtGewaehltes();
}

void LagerbestandNeu::zeigeBestandsliste()
{
    filtereBestandsliste(*m_haupt, gewaehlteEingrenzung(),
                         {.inSumme = ui->chkNurSumme->isChecked(), .ohneNull = ui->chkOhneNull->isChecked()});
}

/// The journal is to be seen at once. What takes half a second more in a large year lies behind a tab or in lists that are
/// closed.
void LagerbestandNeu::nachErstemMalen()
{
    if (m_gemalt) return;
    m_gemalt = true;
    // A lock is waited for and told once. After a name that broke a statement the lists are needed to choose another.
    if (!m_dateiAntwortet) return;
    const auto lade = [this] {
        const sys::Hourglass warten;
        sys::underErrorReport({[this] { AuswahllistenFullen(); }, [this] { zeigeBestandsliste(); }});
    };
    QMetaObject::invokeMethod(this, lade, Qt::QueuedConnection);
}

void LagerbestandNeu::drpJahr_Click()
{
    const sys::Hourglass warten;
    const QDate Stichdatum = modulzustand().Stichdatum;
    const auto ID = currentId(*Journaldaten);
    const auto ausgang = sys::underErrorReport({
        [this] { modulzustand().Stichdatum = QDate(gewaehltesJahr() - 1, 1, 1); },
        [this] { schreibeWeiter(); },
        [this] { LagerDateiEinstellen(); },
    });
    const bool gewechselt = ausgang == sys::Outcome::Completed && m_gebundenesJahr == ui->drpJahr->Text();
    if (!gewechselt) {
        modulzustand().Stichdatum = Stichdatum;
        kehreZurueck();
    }
    if (!gewechselt) {
        aktualisiere();
        return findId(*Journaldaten, ID);
    }
    sys::underErrorReport(
        {[this] { fuelleFuerAnderesJahr(filterlisten(), *oeffneJournaldatei()); }, [this] { FilterEinstellen(); }});
    if (Journaldaten->RecordCount() > 0) Journaldaten->MoveLast();
}

/// To the year that the views showed, when another one could not be opened or the user ignored that: dates, status line and
/// rows must be of one year.
void LagerbestandNeu::kehreZurueck()
{
    if (m_gebundenesJahr.isEmpty()) return;
    ui->drpJahr->setText(m_gebundenesJahr);
    if (modulzustand().Jahr != m_gebundenesJahr) sys::underErrorReport({[this] { bindeJahr(); }});
}

/// The carry-forward of a farm with many years takes its time, so the status line says what is going on.
void LagerbestandNeu::schreibeWeiter()
{
    const Statusmeldung meldung(*ui->Statuszeile, u"Die Bestände werden weitergeschrieben ..."_s);
    JahresUbertrag();
}

void LagerbestandNeu::waehleAlle()
{
    ui->drpLagerOrte->setText(AlleLagerorte);
    ui->drpArtikelGruppe->setText(AlleArtikelgruppen);
    ui->drpArtikel->setText(AlleArtikel);
}

/// The whole year again; what only shapes the stock list stays.
void LagerbestandNeu::zeigeAlles()
{
    waehleAlle();
    if (!m_gebundenesJahr.isEmpty()) zeigeJahr();
    aktualisiere();
}

/// Shows what the file and its lists hold now; opens the year when that failed before.
void LagerbestandNeu::aktualisiere()
{
    const sys::Hourglass warten;
    const bool zuerst = !Journaldaten->isOpen();
    sys::underErrorReport({
        [this] {
            if (m_gebundenesJahr.isEmpty()) LagerDateiEinstellen();
        },
        [this] { AuswahllistenFullen(); }, // what is chosen stays
        [this] { FilterEinstellen(); },
    });
    if (zuerst && Journaldaten->RecordCount() > 0) Journaldaten->MoveLast(); // the newest booking
}

void LagerbestandNeu::drpArtikelGruppe_Click()
{
    const sys::Hourglass warten;
    sys::underErrorReport({
        [this] { AuswahllistenFullen(); },
        [this] { ui->drpArtikel->setText(AlleArtikel); },
        [this] { FilterEinstellen(); },
    });
}

/// A failed write leaves the tick as it was.
void LagerbestandNeu::M_Vorjahr_Click(bool ohne)
{
    const sys::Hourglass warten;
    const auto ID = currentId(*Journaldaten);
    bool geschrieben = false;
    sys::underErrorReport({[&] {
        setzeOhneVorjahr(*oeffneJournaldatei(), ohne);
        geschrieben = true;
    }});
    if (!geschrieben) return ui->M_Vorjahr->setChecked(!ohne);
    sys::underErrorReport({
        [this] { schreibeWeiter(); },
        [this] { LagerDateiEinstellen(); },
        [this] { FilterEinstellen(); },
        [&] { findId(*Journaldaten, ID); },
    });
}

void LagerbestandNeu::Journaldaten_Reposition()
{
    for (QPushButton* befehl : {ui->Command7_1_, ui->Command4})
        befehl->setEnabled(Journaldaten->RecordCount() > 0);
    zeigeZeilenzahl(*Journaldaten, *ui->Journalliste, u"Bewegung"_s, u"Bewegungen"_s);
}

void LagerbestandNeu::Bestanddaten_Reposition()
{
    zeigeZeilenzahl(*Bestanddaten, *ui->BestandListe, u"Artikel"_s, u"Artikel"_s);
}

bool LagerbestandNeu::journalGezeigt() const
{
    return ui->SSTab1->currentWidget() == ui->TabJournal;
}

void LagerbestandNeu::SSTab1_Click()
{
    const bool journal = journalGezeigt();
    ui->Command2->setText(journal ? u"Bewegungsjournal drucken"_s : u"Lagerstandsliste drucken"_s);
    ui->Frame3->setVisible(journal);
    GruppierungLaden(*ui->DrpGruppierung, journalGezeigt());
}

bool LagerbestandNeu::event(QEvent* event)
{
    if (event->type() == QEvent::Paint) nachErstemMalen();
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
