#include "masks/LAKorrekturForm.h"

#include "ui_LAKorrekturForm.h"

#include "masks/ErfassungsmaskenModul.h"
#include "masks/Lagerstand.h"
#include "masks/Maskenraster.h"
#include "masks/Maskenteile.h"
#include "platform/controls/FocusWhole.h"
#include "platform/controls/Wiring.h"
#include "platform/system/ErrorReport.h"

using namespace Qt::StringLiterals;

LAKorrekturForm::LAKorrekturForm(const Hauptansicht& haupt, QWidget* parent)
    : Erfassungsmaske(haupt, parent), ui(std::make_unique<Ui::LAKorrekturForm>())
{
    ui->setupUi(this);
    richteAus({ui->Kopf->Kopf, ui->Bestaende, ui->Fuss->Kommentarzeile});
    verbinde(*ui->Kopf, *ui->Fuss, *ui->txtMenge, *ui->txtEinheit, *ui->Ampel);
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
        [this] { stelleWiederHer(); },
        [this] {
            if (aendert()) uebernimmZeile();
        },
        [this] {
            if (aendert()) zeigeZaehlung();
        },
        [this] { bereiteMaskeVor(felder()); },
        [this] { oeffneLagerliste(); },
        [this] { oeffneArtikelliste(); },
        [this] {
            if (!aendert()) FelderFullen();
        },
        [this] { zeigeVorhanden(); },
        [this] { zeigeErstesLeeresFeld(); },
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
    stelleAmpel(*ui->Ampel, ui->txtMenge->Value() < 0);
}

void LAKorrekturForm::FelderFullen()
{
    zeigeBisher();
    zeigeVorhanden();
    berechneDifferenz();
    ermittleEinheit();
    AmpelEinstellen();
}

void LAKorrekturForm::zeigeBisher()
{
    for (NumberEdit* feld : {ui->txtBisher, ui->txtBisherGesamt})
        feld->setValue(0); // where the look-up fails no other article's stock may stay
    m_bisher = Bisher::Unbekannt;
    const auto journal = oeffneJournaldatei();
    const QString artikel = felder().drpArtikel.Text();
    ui->txtBisher->setValue(lagerstand(*journal, artikel, felder().drpLagerort.Text(), ID()));
    ui->txtBisherGesamt->setValue(lagerstand(*journal, artikel, ID()));
    m_bisher = Bisher::Bekannt;
}

/// The count of this place less the stock of all places has no meaning of its own; it is shown and not booked.
void LAKorrekturForm::berechneDifferenz()
{
    ui->txtNeu->setValue(ui->txtMenge->Value() - ui->txtBisher->Value());
    ui->txtNeuGesamt->setValue(ui->txtMenge->Value() - ui->txtBisherGesamt->Value());
}

void LAKorrekturForm::ermittleEinheit()
{
    const QString artikel = vergleichsform(felder().drpArtikel.Text());
    const auto uebernimm = [this](const jet::Recordset& zeile) { Einheit().setText(zeile[u"Einheit"].toText()); };
    const auto journal = oeffneJournaldatei();
    const auto letzte = journal->OpenRecordset(
        u"SELECT Preis, Einheit, Preisfaktor FROM LAGERJOURNAL WHERE Trim(lcase(ARTIKEL)) = '"_s + artikel +
            u"' AND Buchungsart IN ('Zukauf','Anfangsbestand') ORDER BY DATUM DESC"_s,
        jet::Kind::Dynaset);
    if (!letzte->Eof()) return uebernimm(*letzte);
    if (sucheArtikel(felder().Artikelauswahl, artikel)) uebernimm(felder().Artikelauswahl.Recordset());
}

/// After "Speichern und &nächster" the article stays and its stock shows 0: a new count needs the real one.
void LAKorrekturForm::txtMenge_Change()
{
    if (m_bisher == Bisher::Geleert) zeigeBisher();
    berechneDifferenz();
    AmpelEinstellen();
}

/// A count has no difference to a stock that could not be looked up, or that was not looked up since the last save: that
/// is done now, and reported when it fails. The 0 of a new count that nobody has typed would book the whole stock away.
bool LAKorrekturForm::darfSpeichern()
{
    if (m_bisher == Bisher::Unbekannt && aendert() && !m_gezaehlt)
        zeigeZaehlung();
    else if (m_bisher != Bisher::Bekannt)
        FelderFullen();
    if (!Erfassungsmaske::darfSpeichern()) return false;
    if (aendert() || m_gezaehlt || ui->txtBisher->Value() == 0) return true;
    return fehlt(*ui->txtMenge, u"Bitte tragen Sie eine Menge ein !"_s);
}

void LAKorrekturForm::ergaenze(Buchung& buchung)
{
    buchung.Menge = ui->txtNeu->Value();
    buchung.Buchungsmenge = ui->txtNeu->Value();
}

void LAKorrekturForm::leereFuerNaechste()
{
    for (NumberEdit* zahlfeld : {ui->txtMenge, ui->txtBisher, ui->txtBisherGesamt, ui->txtNeu, ui->txtNeuGesamt})
        zahlfeld->setValue(0);
    m_bisher = Bisher::Geleert;
    m_gezaehlt = false;
    focusWhole(felder().Buchdatum);
}
