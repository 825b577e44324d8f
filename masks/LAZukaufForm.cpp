#include "masks/LAZukaufForm.h"
#include "core/farm/Artikelarten.h"
#include "core/farm/Buchungsarten.h"

#include "ui_LAZukaufForm.h"

#include "core/Journaldatei.h"
#include "core/Modulzustand.h"
#include "masks/ErfassungsmaskenModul.h"
#include "masks/Lagerstand.h"
#include "masks/Maskenraster.h"
#include "masks/Maskenteile.h"
#include "masks/Speicherweg.h"
#include "masks/Textlaenge.h"
#include "platform/controls/FocusWhole.h"
#include "platform/controls/Wiring.h"
#include "platform/jet/Rounding.h"
#include "platform/system/Blanks.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Messages.h"
#include "platform/system/Settings.h"

using namespace Qt::StringLiterals;

namespace {

const QString Biologisch = u"BIOJA"_s;
const QString Gebeizt = u"GEBEIZT"_s;

/// "2,5" as texts of rows have it.
double zahl(const QString& text)
{
    return QString(text).replace(u',', u'.').toDouble();
}

/// For what is none, a purchase.
const Buchungsart& gewaehlteArt()
{
    const auto* const art = buchungsartZu(modulzustand().AktBuchungsart);
    return art ? *art : *buchungsartZu(buchungsart::Zukauf);
}

} // namespace

LAZukaufForm::LAZukaufForm(const Hauptansicht& haupt, QWidget* parent)
    : Maskenfenster(haupt, parent), ui(std::make_unique<Ui::LAZukaufForm>()), m_art(gewaehlteArt()),
      m_bild(m_art.bild), m_handlerDaten(new DataControl(this))
{
    ui->setupUi(this);
    richteFelderEin();
    ordneAn();
    m_stand.emplace(*ui->txtBisher, ui->txtBisherGesamt, *ui->Ampel);
    m_warnung.emplace(*ui->Fuss->lblWarnung);
    m_buchung = new Einzelbuchung({*ui->Kopf, *ui->Fuss, *ui->txtMenge, *ui->txtEinheit, *ui->Ampel},
                                  {[this] { Ansichteinstellen(); }, [this] { FelderFullen(); }}, *this,
                                  {ui->txtPreis, ui->stHandler});
    new Speicherweg(*this, *ui->Fuss, m_buchung->eingaben(),
                    {.frage = [this] { return darfOhnePartner(); },
                     .merke = [this] { merkeEinstellungen(); },
                     .schreibe = [this] { schreibe(); },
                     .positioniere = [this] { m_buchung->positioniere(); },
                     .leere = [this] { leereFuerNaechste(); }});
    verdrahteFelder();
    Form_Load();
}

LAZukaufForm::~LAZukaufForm() = default;

void LAZukaufForm::richteFelderEin()
{
    m_handlerDaten->setObjectName(u"HandlerDaten"_s);
    ui->stHandler->setDataFieldToDisplay(u"KurzKu"_s);
    ui->stHandler->setDataFieldToFind(u"NAME"_s);
    ui->stHandler->addColumn(u"Kürzel:"_s, u"KurzKu"_s);
    ui->stHandler->addColumn(u"Name:"_s, u"NAME"_s);
    ui->stHandler->addColumn(u"Vorname:"_s, u"VORNAME"_s);
    ui->stHandler->addColumn(u"Sraße:"_s, u"Strasse"_s); // sic
    ui->stHandler->setFindFillsIn(true);
    ui->stHandler->setDataSource(*m_handlerDaten);
    begrenze(*ui->stHandler, u"Geschäftspartner"_s, 15);
    ui->txtPreis->setNumberFormat(u"##,##0.00##"_s);
    ui->txtBetrag->setNumberFormat(u"##,##0.00"_s);
    ui->txtPreisFaktor->setNumberFormat(u"0.##"_s);
    constexpr int Faktorzeichen = 9; // three, and what stands around them
    ui->txtPreisFaktor->setFixedWidth(Faktorzeichen * fontMetrics().averageCharWidth());
}

void LAZukaufForm::ordneAn()
{
    for (QWidget* merkmal : std::initializer_list<QWidget*>{ui->frmBeizung, ui->chkBiologisch})
        behaeltPlatz(*merkmal);
    const int feldspalte = richteAus({ui->Kopf->Kopf, ui->Mengenzeile, ui->Preise, ui->Partnerzeile,
                                      ui->Bestaende, ui->Fuss->Kommentarzeile});
    if (m_bild.mitPreis) return;
    // Both stand under the fields, the tick first: it is there for more kinds of articles.
    ui->Mitte->setContentsMargins(feldspalte, 0, 0, 0);
    ui->Merkmale->setDirection(QBoxLayout::RightToLeft);
    setTabOrder(ui->txtEinheit, ui->chkBiologisch);
    setTabOrder(ui->chkBiologisch, ui->OptJa);
}

void LAZukaufForm::verdrahteFelder()
{
    for (NumberEdit* feld : {ui->txtPreis, ui->txtPreisFaktor, ui->txtBetrag})
        bewache(*feld);

    verdrahte(ui->stHandler, &DataCombo::DropDown, this, [this] { ladeGeschaeftspartner(*m_handlerDaten); });
    verdrahte(ui->chkBiologisch, &CheckBox::Click, this, &LAZukaufForm::Ansichteinstellen);
    verdrahte(ui->txtMenge, &NumberEdit::Change, this, &LAZukaufForm::txtMenge_Change);
    verdrahte(ui->txtPreis, &NumberEdit::Change, this, &LAZukaufForm::berechneBetrag);
    verdrahte(ui->txtBetrag, &NumberEdit::Change, this, &LAZukaufForm::txtBetrag_Change);
    verdrahte(ui->txtPreisFaktor, &NumberEdit::Change, this, &LAZukaufForm::txtPreisFaktor_Change);
    verdrahte(ui->txtPreisFaktor, &NumberEdit::Validate, this, &LAZukaufForm::txtPreisFaktor_Validate);
    verdrahte(ui->txtEinheit, &TextBox::Change, this, &LAZukaufForm::zeigePreiseinheit);
}

void LAZukaufForm::Form_Load()
{
    sys::underErrorReport({
        [this] { m_buchung->oeffne(); },
        [this] {
            ui->chkBiologisch->setValue(
                sys::GetSetting(u"Lagerverwaltung"_s, u"BioZukauf"_s, u"0"_s).toInt());
        },
        [this] { passeAn(); },
        [this] {
            if (aendert()) uebernimmZeile();
        },
        [this] { m_buchung->bereiteVor(); },
        [this] { Ansichteinstellen(); },
        [this] { m_buchung->ort().oeffne(); },
        [this] { ladeGeschaeftspartner(*m_handlerDaten); },
        [this] { m_buchung->artikel().oeffne(); },
        [this] { FelderFullen(); },
        [this] { m_buchung->zeigeErstesLeeresFeld(); },
    });
}

/// What differs from kind to kind.
void LAZukaufForm::passeAn()
{
    ui->SSPanel4->setText(m_bild.Mengentitel.toString());
    ui->SSPanel5->setText(m_bild.Werttitel.toString());
    for (QWidget* feld : std::initializer_list<QWidget*>{ui->stHandler, ui->SSPanel6, ui->PreisPanel})
        feld->setVisible(m_bild.mitPreis);
    for (QWidget* feld : std::initializer_list<QWidget*>{ui->lblBisher, ui->txtBisher, ui->txtBisherGesamt})
        feld->setVisible(m_bild.mitBisher);
    ui->KommentarPanel->setVisible(!m_bild.Hinweis.isEmpty());
    ui->KommentarPanel->setText(m_bild.Hinweis.toString());
}

/// The row's own columns; its article counts as last priced, so that opening a row never changes its price.
void LAZukaufForm::uebernimmZeile()
{
    const Buchung zeile = gelesen(journaldaten().Recordset());
    m_buchung->zeige(zeile);
    m_warnung->setVorher({zeile});
    const double menge = zeile.Menge.value_or(0);
    ui->txtMenge->setValue(m_art.ausgang ? -menge : menge);
    ui->txtPreisFaktor->setValue(zahl(zeile.Preisfaktor.value_or(QString())));
    ui->txtPreis->setValue(zeile.Preis.value_or(0));
    ui->stHandler->setText(zeile.Uberstallt_alt.value_or(QString()));
    ui->chkBiologisch->setValue(zeile.Verfuttert_an == Biologisch);
    (zeile.Verfuttert_an == Gebeizt ? ui->OptJa : ui->OptNein)->setValue(true);
    m_bepreisterArtikel = vergleichsform(zeile.Artikel.value_or(QString()));
}

void LAZukaufForm::AmpelEinstellen()
{
    m_stand->zeigeAmpel(ui->txtNeu->Value() < 0 || ui->txtNeuGesamt->Value() < 0);
}

void LAZukaufForm::Ansichteinstellen()
{
    const QString art = m_buchung->artikel().Artikelart();
    const bool ohneBeizung =
        art == Wirtschaftsduenger || art == PflanzlicheErzeugnisse || art == Futtermittel;
    const bool saatgut = art == Saatgut || art == Zwischenfruchtsaatgut;
    ui->chkBiologisch->setVisible(ohneBeizung || saatgut);
    // Of other kinds the dressing shows all the same while the hidden tick is clear: users know the mask so.
    ui->frmBeizung->setVisible(!ohneBeizung && ui->chkBiologisch->Value() == 0);
}

void LAZukaufForm::FelderFullen()
{
    m_stand->leere();
    berechneBestaende();
    AmpelEinstellen();
    m_buchung->artikel().zeigeHaken();
    const QString artikel = m_buchung->artikel().Artikel();
    m_stand->lies(artikel, m_buchung->ort().Ort(), ID());
    berechneBestaende();
    if (vergleichsform(artikel) != m_bepreisterArtikel) ermittlePreis(vergleichsform(artikel));
    m_bepreisterArtikel = vergleichsform(artikel);
    if (ui->txtPreisFaktor->Value() == 0) ui->txtPreisFaktor->setValue(1);
    berechneBetrag();
    zeigePreiseinheit();
    AmpelEinstellen();
    zeigeWarnung();
}

/// The latest price that the journal knows, or that of the master data where those are offered.
void LAZukaufForm::ermittlePreis(const QString& artikel)
{
    const auto uebernimm = [this](const jet::Recordset& zeile) {
        ui->txtPreis->setValue(zeile[u"Preis"].toDouble());
        ui->txtEinheit->setText(zeile[u"Einheit"].toText());
        ui->txtPreisFaktor->setValue(zahl(zeile[u"Preisfaktor"].toText()));
    };
    const auto journal = oeffneJournaldatei();
    const auto letzte = journal->OpenRecordset(
        u"SELECT Preis, Einheit, Preisfaktor FROM LAGERJOURNAL WHERE Trim(lcase(ARTIKEL)) = '"_s + artikel +
            u"' AND Buchungsart IN ('Zukauf','Anfangsbestand','Ernte') ORDER BY DATUM DESC"_s,
        jet::Kind::Dynaset);
    if (!letzte->Eof()) return uebernimm(*letzte);
    Artikelwahl& wahl = m_buchung->artikel();
    if (wahl.nurVorhandene() || wahl.Artikelart().isEmpty()) return; // these lists have no prices
    if (const auto* const zeile = wahl.gesucht(artikel)) uebernimm(*zeile);
}

double LAZukaufForm::gebuchteMenge() const
{
    return m_art.ausgang ? -ui->txtMenge->Value() : ui->txtMenge->Value();
}

/// A factor of 0, easily typed, counts as 1, and is stored so.
double LAZukaufForm::preisfaktor() const
{
    return ui->txtPreisFaktor->Value() == 0 ? 1 : ui->txtPreisFaktor->Value();
}

void LAZukaufForm::berechneBestaende()
{
    ui->txtNeu->setValue(ui->txtBisher->Value() + gebuchteMenge());
    ui->txtNeuGesamt->setValue(ui->txtBisherGesamt->Value() + gebuchteMenge());
}

void LAZukaufForm::berechneBetrag()
{
    ui->txtBetrag->setValue(ui->txtPreis->Value() / preisfaktor() * ui->txtMenge->Value());
}

void LAZukaufForm::txtBetrag_Change()
{
    if (ui->txtMenge->Value() == 0) return;
    ui->txtPreis->setValue(ui->txtBetrag->Value() * preisfaktor() / ui->txtMenge->Value());
}

/// The price stays: it is the one for the new factor, and the amount follows.
void LAZukaufForm::txtPreisFaktor_Change()
{
    berechneBetrag();
    zeigePreiseinheit();
}

void LAZukaufForm::txtPreisFaktor_Validate(Cancel& cancel)
{
    ui->txtPreisFaktor->setValue(preisfaktor());
    if (!hatPlatz(jet::Value(preisfaktor()).toText(), u"Preisfaktor"_s, 3)) cancel = true;
}

void LAZukaufForm::txtMenge_Change()
{
    berechneBetrag();
    berechneBestaende();
    AmpelEinstellen();
    zeigeWarnung();
}

void LAZukaufForm::zeigeWarnung()
{
    Buchung zeile = m_buchung->buchung();
    zeile.Menge = gebuchteMenge();
    m_warnung->zeige({zeile});
}

void LAZukaufForm::zeigePreiseinheit()
{
    ui->PreisEinheitPanel->setText(u" per "_s + jet::Value(jet::Round(preisfaktor(), 0)).toText() + u" "_s +
                                   ui->txtEinheit->Text());
}

bool LAZukaufForm::darfOhnePartner() const
{
    if (!ui->stHandler->isVisible() || !sys::trimBlanks(ui->stHandler->Text()).isEmpty()) return true;
    return sys::messages().show(u"Sie haben keine Geschäftspartner eingetragen."_s + u"\r\n\r\n"_s +
                                    u"Wollen Sie den Zukauf trotzdem abspeichern ?"_s,
                                sys::YesNo | sys::Question | sys::DefaultButton2) == sys::Answer::Yes;
}

void LAZukaufForm::merkeEinstellungen()
{
    sys::SaveSetting(u"Lagerverwaltung"_s, u"BioZukauf"_s, QString::number(ui->chkBiologisch->Value()));
    m_buchung->merke();
}

void LAZukaufForm::schreibe()
{
    Buchung zeile = m_buchung->buchung();
    zeile.Menge = gebuchteMenge();
    zeile.Buchungsmenge = zeile.Menge;
    zeile.Preisfaktor = jet::Value(preisfaktor()).toText();
    zeile.Preis = ui->txtPreis->Value();
    zeile.Uberstallt_alt = ui->stHandler->Text();
    const bool biologisch = ui->chkBiologisch->Value() == 1;
    zeile.Verfuttert_an = biologisch ? Biologisch : ui->OptJa->Value() ? Gebeizt : QString();
    m_buchung->schreibe(zeile);
}

void LAZukaufForm::leereFuerNaechste()
{
    m_buchung->artikel().setArtikel({});
    m_bepreisterArtikel.clear();
    for (NumberEdit* zahlfeld : {ui->txtMenge, ui->txtBisher, ui->txtBisherGesamt, ui->txtNeu,
                                 ui->txtNeuGesamt, ui->txtPreis, ui->txtBetrag})
        zahlfeld->setValue(0);
    m_buchung->zeigeTag();
    AmpelEinstellen();
    zeigeWarnung();
}
