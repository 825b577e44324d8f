#include "masks/LAKorrekturForm.h"

#include "ui_LAKorrekturForm.h"

#include "core/Journaldatei.h"
#include "masks/ErfassungsmaskenModul.h"
#include "masks/Lagerstand.h"
#include "masks/Maskenraster.h"
#include "masks/Maskenteile.h"
#include "masks/Speicherweg.h"
#include "platform/controls/Wiring.h"
#include "platform/system/ErrorReport.h"

using namespace Qt::StringLiterals;

LAKorrekturForm::LAKorrekturForm(const Hauptansicht& haupt, QWidget* parent)
    : Maskenfenster(haupt, parent), ui(std::make_unique<Ui::LAKorrekturForm>())
{
    ui->setupUi(this);
    richteAus({ui->Kopf->Kopf, ui->Bestaende, ui->Fuss->Kommentarzeile});
    m_stand.emplace(*ui->txtBisher, ui->txtBisherGesamt, *ui->Ampel);
    m_warnung.emplace(*ui->Fuss->lblWarnung);
    m_buchung = new Einzelbuchung({*ui->Kopf, *ui->Fuss, *ui->txtMenge, *ui->txtEinheit, *ui->Ampel},
                                  {[] {}, [this] { FelderFullen(); }}, *this);
    new Speicherweg(*this, *ui->Fuss, m_buchung->eingaben(),
                    {.vorher = [this] { ermittleStand(); },
                     .frage = [this] { return istGezaehlt(); },
                     .merke = [this] { m_buchung->merke(); },
                     .schreibe = [this] { schreibe(); },
                     .positioniere = [this] { m_buchung->positioniere(); },
                     .leere = [this] { leereFuerNaechste(); }});
    verdrahte(ui->txtMenge, &NumberEdit::Change, this, &LAKorrekturForm::txtMenge_Change);
    // A 0 over the 0, too. A field that was emptied shows a 0 that nobody has counted.
    verdrahte(ui->txtMenge, &QLineEdit::textEdited, this,
              [this](const QString& text) { m_gezaehlt = !text.isEmpty(); });
    verdrahte(ui->txtMenge, &NumberEdit::ValueWritten, this, [this] { m_gezaehlt = true; });
    Form_Load();
}

LAKorrekturForm::~LAKorrekturForm() = default;

void LAKorrekturForm::Form_Load()
{
    sys::underErrorReport({
        [this] { m_buchung->oeffne(); },
        [this] {
            if (!aendert()) return;
            const Buchung zeile = gelesen(journaldaten().Recordset());
            m_buchung->zeige(zeile);
            m_warnung->setVorher({zeile});
        },
        [this] {
            if (aendert()) zeigeZaehlung();
        },
        [this] { m_buchung->bereiteVor(); },
        [this] { m_buchung->ort().oeffne(); },
        [this] { m_buchung->artikel().oeffne(); },
        [this] {
            if (!aendert()) FelderFullen();
        },
        [this] { m_buchung->artikel().zeigeHaken(); },
        [this] { m_buchung->zeigeErstesLeeresFeld(); },
    });
}

/// The count that the stored difference came from; the unit stays the row's own.
void LAKorrekturForm::zeigeZaehlung()
{
    zeigeBisher();
    ui->txtMenge->setValue(ui->txtBisher->Value() + journaldaten().Recordset()[u"Menge"].toDouble());
    berechneDifferenz();
    AmpelEinstellen();
}

void LAKorrekturForm::AmpelEinstellen()
{
    m_stand->zeigeAmpel(ui->txtMenge->Value() < 0);
}

void LAKorrekturForm::FelderFullen()
{
    zeigeBisher();
    m_buchung->artikel().zeigeHaken();
    berechneDifferenz();
    ermittleEinheit();
    AmpelEinstellen();
    zeigeWarnung();
}

void LAKorrekturForm::zeigeBisher()
{
    m_bisher = Bisher::Unbekannt;
    m_stand->lies(m_buchung->artikel().Artikel(), m_buchung->ort().Ort(), ID());
    m_bisher = Bisher::Bekannt;
}

/// The count of this place less the stock of all places has no meaning of its own; it is shown and not
/// booked.
void LAKorrekturForm::berechneDifferenz()
{
    ui->txtNeu->setValue(ui->txtMenge->Value() - ui->txtBisher->Value());
    ui->txtNeuGesamt->setValue(ui->txtMenge->Value() - ui->txtBisherGesamt->Value());
}

void LAKorrekturForm::ermittleEinheit()
{
    const QString artikel = vergleichsform(m_buchung->artikel().Artikel());
    const auto uebernimm = [this](const jet::Recordset& zeile) {
        ui->txtEinheit->setText(zeile[u"Einheit"].toText());
    };
    const auto journal = oeffneJournaldatei();
    const auto letzte = journal->OpenRecordset(
        u"SELECT Preis, Einheit, Preisfaktor FROM LAGERJOURNAL WHERE Trim(lcase(ARTIKEL)) = '"_s + artikel +
            u"' AND Buchungsart IN ('Zukauf','Anfangsbestand') ORDER BY DATUM DESC"_s,
        jet::Kind::Dynaset);
    if (!letzte->Eof()) return uebernimm(*letzte);
    if (const auto* const zeile = m_buchung->artikel().gesucht(artikel)) uebernimm(*zeile);
}

/// After "Speichern und &nächster" the article stays and its stock shows 0: a new count needs the real one.
void LAKorrekturForm::txtMenge_Change()
{
    if (m_bisher == Bisher::Geleert) zeigeBisher();
    berechneDifferenz();
    AmpelEinstellen();
    zeigeWarnung();
}

void LAKorrekturForm::zeigeWarnung()
{
    Buchung zeile = m_buchung->buchung();
    zeile.Menge = ui->txtNeu->Value();
    m_warnung->zeige({zeile});
}

/// A count has no difference to a stock that could not be looked up, or that was not looked up since the last
/// save: that is done now, and reported when it fails.
void LAKorrekturForm::ermittleStand()
{
    if (m_bisher == Bisher::Unbekannt && aendert() && !m_gezaehlt)
        zeigeZaehlung();
    else if (m_bisher != Bisher::Bekannt)
        FelderFullen();
}

/// The 0 of a new count that nobody has typed would book the whole stock away.
bool LAKorrekturForm::istGezaehlt() const
{
    if (aendert() || m_gezaehlt || ui->txtBisher->Value() == 0) return true;
    return fehlt(*ui->txtMenge, u"Bitte tragen Sie eine Menge ein !"_s);
}

void LAKorrekturForm::schreibe()
{
    Buchung zeile = m_buchung->buchung();
    zeile.Menge = ui->txtNeu->Value();
    zeile.Buchungsmenge = zeile.Menge;
    m_buchung->schreibe(zeile);
}

void LAKorrekturForm::leereFuerNaechste()
{
    for (NumberEdit* zahlfeld :
         {ui->txtMenge, ui->txtBisher, ui->txtBisherGesamt, ui->txtNeu, ui->txtNeuGesamt})
        zahlfeld->setValue(0);
    m_bisher = Bisher::Geleert;
    m_gezaehlt = false;
    m_buchung->zeigeTag();
    AmpelEinstellen();
    m_warnung->zeige({}); // the article stays, but nothing is counted
}
