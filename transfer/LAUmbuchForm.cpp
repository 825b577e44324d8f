#include "transfer/LAUmbuchForm.h"

#include "ui_LAUmbuchForm.h"

#include "core/Modulzustand.h"
#include "core/Ruecknahme.h"
#include "core/ZeilenumbruchEntfernen.h"
#include "masks/Artikelwahl.h"
#include "masks/Buchungstag.h"
#include "masks/ErfassungsmaskenModul.h"
#include "masks/Lagerortwahl.h"
#include "masks/Maskenteile.h"
#include "masks/Speicherweg.h"
#include "masks/Textlaenge.h"
#include "platform/controls/FocusWhole.h"
#include "platform/controls/RowIds.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Wiring.h"
#include "platform/jet/Errors.h"
#include "platform/jet/Transaction.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Settings.h"
#include "transfer/Umbuchseite.h"
#include "transfer/Umbuchungspartner.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

const QString Abschnitt = u"Lagerverwaltung"_s;

std::unique_ptr<jet::Recordset> zeileMit(DataControl& journal, qint64 ID)
{
    auto zeile = journal.Database().OpenRecordset(
        u"SELECT * FROM LAGERJOURNAL WHERE ID = "_s + QString::number(ID), jet::Kind::Dynaset);
    if (zeile->Eof()) jet::raise(jet::ErrorNumber::NoCurrentRecord);
    return zeile;
}

} // namespace

LAUmbuchForm::LAUmbuchForm(const Hauptansicht& haupt, QWidget* parent)
    : Maskenfenster(haupt, parent), ui(std::make_unique<Ui::LAUmbuchForm>()),
      m_lagerauswahl(new DataControl(this)), m_artikelauswahl(new DataControl(this)),
      m_artikelauswahl2(new DataControl(this))
{
    ui->setupUi(this);
    m_lagerauswahl->setObjectName(u"Lagerauswahl"_s);
    m_artikelauswahl->setObjectName(u"Artikelauswahl"_s);
    m_artikelauswahl2->setObjectName(u"Artikelauswahl2"_s);
    ui->Zugang->nenneZweite();
    ui->Abgang->setzeEinheitNeben(*ui->txtMenge, *ui->MengeMitEinheit);
    constexpr int Mengenzeichen = 12; // of average width
    ui->txtMenge->setMinimumWidth(Mengenzeichen * fontMetrics().averageCharWidth());
    richteFensterEin(*ui->Fuss, {ui->Abgang->drpLagerort, ui->Abgang->drpArtikel, ui->txtMenge,
                                 ui->Zugang->drpLagerort, ui->Zugang->drpArtikel, ui->Fuss->txtKommentar});
    bewache(*ui->txtMenge);
    m_warnung.emplace(*ui->Fuss->lblWarnung);
    m_tag = new Buchungstag(
        *ui->Buchdatum, *ui->Command3, [this] { weiter(); }, this);
    m_abgang.emplace(
        seite(*ui->Abgang, *m_artikelauswahl, *ui->txtAbgangsID, -1, [this] { FelderFullen(); }));
    m_zugang.emplace(
        seite(*ui->Zugang, *m_artikelauswahl2, *ui->txtZugangsID, 1, [this] { FelderFullen2(); }));
    m_zugang->artikel->etikettOhneArt();
    verdrahte(ui->txtMenge, &NumberEdit::Change, this, &LAUmbuchForm::txtMenge_Change);
    verdrahte(ui->Buchdatum, &DateCombo::Change, this, &LAUmbuchForm::zeigeWarnung);
    const auto merke = [this] {
        sys::SaveSetting(Abschnitt, u"NurVorhandenAnzeigen2"_s,
                         QString::number(ui->Abgang->chkVorhanden->Value()));
    };
    new Speicherweg(
        *this, *ui->Fuss,
        {maskenfelder(*ui->Abgang, *m_artikelauswahl), *m_tag, maskenfelder(*ui->Zugang, *m_artikelauswahl2)},
        {.merke = merke,
         .schreibe = [this] { schreibe(); },
         .positioniere = [this] { positioniere(); },
         .leere = [this] { leereFuerNaechste(); }});
    Form_Load();
}

LAUmbuchForm::~LAUmbuchForm() = default;

LAUmbuchForm::Seite LAUmbuchForm::seite(Umbuchseite& felder, DataControl& Artikelauswahl, NumberEdit& ID,
                                        int vorzeichen, const std::function<void()>& fuelle)
{
    begrenze(*felder.txtEinheit, u"Einheit"_s, 15);
    bewache(*felder.drpArtikel);
    auto* const ort = new Lagerortwahl(
        {*felder.drpLagerort, *felder.lblLagerort, *felder.lblLagername, *m_lagerauswahl}, fuelle, this);
    auto* const artikel = new Artikelwahl(
        {*felder.drpGruppe, *felder.drpArtikel, *felder.chkVorhanden, *felder.lblArtikel, Artikelauswahl},
        {[] {}, fuelle}, this);
    return {felder, ID, vorzeichen, ort, artikel, Lagerstand(*felder.txtBisher, nullptr, *felder.Ampel)};
}

Maskenfelder LAUmbuchForm::maskenfelder(Umbuchseite& seite, DataControl& Artikelauswahl) const
{
    return {*ui->Buchdatum,  *seite.drpLagerort, *seite.drpGruppe,       *seite.drpArtikel,
            *ui->txtMenge,   *seite.Ampel,       *ui->Fuss->Command2_0_, *ui->Fuss->Command2_1_,
            *m_lagerauswahl, Artikelauswahl};
}

/// Each step is reported by itself: a list that cannot be read must not cost the row that is changed.
void LAUmbuchForm::Form_Load()
{
    sys::underErrorReport({
        [this] { bereiteMaskeVor(maskenfelder(*ui->Abgang, *m_artikelauswahl)); },
        [this] { m_lagerauswahl->Refresh(); },
        // sic: the tick of the issuing side is remembered under the name with the 2, this one read without it
        [this] {
            const QString nurVorhandene = sys::GetSetting(Abschnitt, u"NurVorhandenAnzeigen"_s, u"0"_s);
            ui->Zugang->chkVorhanden->setValue(nurVorhandene.toInt() != 0);
        },
        [this] {
            if (aendert()) uebernimmPaar();
        },
        [this] { m_abgang->ort->zeigeName(); },
        [this] { m_zugang->ort->zeigeName(); },
        [this] { m_abgang->artikel->oeffne(); },
        [this] { m_zugang->artikel->oeffne(); },
        [this] {
            if (aendert()) FelderFullen();
        },
        [this] {
            if (aendert()) FelderFullen2();
        },
    });
    QWidget* const erstes = aendert() ? static_cast<QWidget*>(ui->txtMenge) : ui->Abgang->drpLagerort;
    focusWhole(*erstes);
}

/// Whichever of its rows was chosen, the pair is shown alike. A receipt without its issue leaves both sides
/// empty. Without a receipt the issue stands on both sides, and the save is refused.
void LAUmbuchForm::uebernimmPaar()
{
    const jet::Recordset& gewaehlte = journaldaten().Recordset();
    ui->Buchdatum->setDate(gewaehlte[u"Datum"].toDate());
    ui->Buchdatum->setTag(ui->Buchdatum->Text());
    std::optional<qint64> abgang = ID();
    if (gewaehlte[u"Menge"].toDouble() > 0) abgang = umbuchungspartner(journaldaten(), ID());
    if (!abgang) return;
    const Buchung abgangszeile = gelesen(*zeileMit(journaldaten(), *abgang));
    uebernimmSeite(*m_abgang, abgangszeile);
    ui->txtMenge->setValue(-abgangszeile.Menge.value_or(0));
    ui->txtMenge->setTag(ui->txtMenge->Text());
    const qint64 zugang = umbuchungspartner(journaldaten(), *abgang).value_or(*abgang);
    const Buchung zugangszeile = gelesen(*zeileMit(journaldaten(), zugang));
    uebernimmSeite(*m_zugang, zugangszeile);
    m_warnung->setVorher(zugang == *abgang ? std::vector{abgangszeile}
                                           : std::vector{abgangszeile, zugangszeile});
    ui->Fuss->txtKommentar->setText(zugangszeile.Kommentar.value_or(QString()));
}

void LAUmbuchForm::uebernimmSeite(const Seite& seite, const Buchung& zeile)
{
    seite.ID.setValue(double(zeile.ID.value_or(0)));
    seite.artikel->zeige(zeile);
    seite.ort->setOrt(zeile.LagerortKurzKu.value_or(QString()));
    seite.felder.txtEinheit->setText(zeile.Einheit.value_or(QString()));
}

void LAUmbuchForm::AmpelEinstellen()
{
    for (Seite* seite : {&*m_abgang, &*m_zugang})
        seite->stand.zeigeAmpel(seite->felder.txtNeu->Value() < 0);
}

void LAUmbuchForm::berechne(Seite& seite)
{
    const qint64 ohne = aendert() ? static_cast<qint64>(seite.ID.Value()) : 0;
    seite.stand.lies(seite.artikel->Artikel(), seite.ort->Ort(), ohne);
    seite.felder.txtNeu->setValue(seite.felder.txtBisher->Value() + seite.vorzeichen * ui->txtMenge->Value());
}

void LAUmbuchForm::ermittleEinheit(const Seite& seite)
{
    if (const auto* const zeile = seite.artikel->gesucht(seite.artikel->Artikel()))
        seite.felder.txtEinheit->setText((*zeile)[u"Einheit"].toText());
}

/// The tag holds the article of the pair that is changed and is empty for a new one: then every article of
/// the issuing side takes its kind to the receiving side, and itself where nobody has chosen another one,
/// since most transfers only change the place.
void LAUmbuchForm::FelderFullen()
{
    berechne(*m_abgang);
    AmpelEinstellen();
    const Artikelwahl& hier = *m_abgang->artikel;
    if (hier.istUnveraendert()) return zeigeWarnung();
    ermittleEinheit(*m_abgang);
    Artikelwahl& dort = *m_zugang->artikel;
    dort.setArtikelart(hier.Artikelart());
    if (dort.Artikel().isEmpty() || dort.Artikel() == m_mitgenommen)
        dort.setArtikel(m_mitgenommen = hier.Artikel());
    dort.lade();
    FelderFullen2();
}

void LAUmbuchForm::FelderFullen2()
{
    berechne(*m_zugang);
    AmpelEinstellen();
    if (!m_zugang->artikel->istUnveraendert()) ermittleEinheit(*m_zugang);
    zeigeWarnung();
}

void LAUmbuchForm::txtMenge_Change()
{
    const double menge = ui->txtMenge->Value();
    for (const Seite* seite : {&*m_abgang, &*m_zugang})
        seite->felder.txtNeu->setValue(seite->felder.txtBisher->Value() + seite->vorzeichen * menge);
    AmpelEinstellen();
    zeigeWarnung();
}

void LAUmbuchForm::zeigeWarnung()
{
    m_warnung->zeige({buchung(*m_abgang, {}), buchung(*m_zugang, {})});
}

/// One step of the error report: ignoring an error cannot go on with half a pair.
void LAUmbuchForm::schreibe()
{
    auto verwirf = qScopeGuard([this] { journaldaten().UpdateControls(); }); // drops the pending row
    aendert() ? aendere() : bucheNeu();
    verwirf.dismiss();
}

/// Both rows are looked up before the first is written; a half pair is refused.
void LAUmbuchForm::aendere()
{
    const auto abgang = static_cast<qint64>(ui->txtAbgangsID->Value());
    const auto zugang = static_cast<qint64>(ui->txtZugangsID->Value());
    if (abgang == 0 || zugang == 0 || abgang == zugang) jet::raise(jet::ErrorNumber::NoCurrentRecord);
    jet::Transaction paar(journaldaten().Database());
    Aufzeichnung aufzeichnung(journaldaten().Database());
    for (const qint64 ID : {abgang, zugang}) {
        zeileMit(journaldaten(), ID);
        aufzeichnung.vorher(ID);
    }
    bearbeite(abgang, *m_abgang);
    bearbeite(zugang, *m_zugang);
    paar.commit();
    aufzeichnung.fertig();
}

/// What an earlier try has stored already is written over, not doubled; what was taken back is gone, and its
/// number is given to another row.
void LAUmbuchForm::bucheNeu()
{
    const auto vergiss = [this] {
        m_neuerAbgang.reset();
        m_neuerZugang.reset();
    };
    jet::Transaction paar(journaldaten().Database(), vergiss);
    const qint64 abgang = schreibeNeue(m_neuerAbgang, *m_abgang);
    const qint64 zugang = schreibeNeue(m_neuerZugang, *m_zugang, abgang);
    journaldaten().Database().Execute(u"UPDATE LAGERJOURNAL SET Verfuttert_an = '"_s +
                                      QString::number(zugang) + u"' WHERE ID = "_s + QString::number(abgang));
    paar.commit();
    vergiss();
    Aufzeichnung aufzeichnung(journaldaten().Database());
    aufzeichnung.neu(abgang);
    aufzeichnung.neu(zugang);
    aufzeichnung.fertig();
}

/// Adds a row, or writes that of an earlier try once more. No row becomes current: what shows the journal
/// would follow and might have an error to tell, while other programs wait for the file. \returns its ID.
qint64 LAUmbuchForm::schreibeNeue(std::optional<qint64>& neue, const Seite& seite,
                                  std::optional<qint64> partner)
{
    if (neue) {
        bearbeite(*neue, seite, partner);
        return *neue;
    }
    DataControl& journal = journaldaten();
    Buchung zeile = buchung(seite, partner);
    zeile.BuchungsID = 0; // of no sibling program
    journal.AddNew();
    setze(journal, zeile);
    journal.Update();
    neue = idAt(journal, journal.RecordCount() - 1);
    return neue.value();
}

/// Changes a row of a pair, also one that the journal's filter hides.
void LAUmbuchForm::bearbeite(qint64 ID, const Seite& seite, std::optional<qint64> partner)
{
    const auto zeile = zeileMit(journaldaten(), ID);
    zeile->Edit();
    setze(*zeile, buchung(seite, partner));
    zeile->Update();
}

Buchung LAUmbuchForm::buchung(const Seite& seite, std::optional<qint64> partner) const
{
    Buchung zeile;
    zeile.Datum = m_tag->Tag();
    zeile.Artikel = seite.artikel->Artikel();
    zeile.Artikelart = seite.artikel->Artikelart();
    zeile.LagerortKurzKu = seite.ort->Ort();
    zeile.Menge = seite.vorzeichen * ui->txtMenge->Value();
    zeile.Buchungsmenge = zeile.Menge;
    zeile.Buchungsart = modulzustand().AktBuchungsart;
    zeile.Einheit = seite.felder.txtEinheit->Text();
    zeile.Kommentar = ZeilenumbruchEntfernen(ui->Fuss->txtKommentar->Text());
    if (partner) zeile.Verfuttert_an = QString::number(*partner);
    return zeile;
}

void LAUmbuchForm::positioniere()
{
    DataControl& journal = journaldaten();
    if (aendert()) {
        for (const NumberEdit* ID : {ui->txtAbgangsID, ui->txtZugangsID}) // shows both as they are now
            findId(journal, static_cast<qint64>(ID->Value()));
    } else {
        journal.MoveLast();
    }
    if (haupt().Bestanddaten.RecordCount() > 0) waehleNurAktuelleZeile(haupt().BestandListe);
    zeigeBestand(m_abgang->artikel->Artikel(), m_abgang->ort->Ort());
}

void LAUmbuchForm::leereFuerNaechste()
{
    ui->txtMenge->setValue(0);
    for (Umbuchseite* seite : {ui->Abgang, ui->Zugang}) {
        seite->drpArtikel->setText({});
        seite->setzeBestand(0, 0);
    }
    AmpelEinstellen();
    zeigeWarnung();
    focusWhole(*ui->Buchdatum);
}
