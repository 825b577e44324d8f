#pragma once

#include "masks/Maskenfelder.h"
#include "overview/Auswahllisten.h"
#include "platform/controls/DataControl.h"

#include <QDialog>

#include <memory>
#include <optional>

class Auswertung;
namespace Ui {
class LagerbestandNeu;
}

/// The main screen: one year of a farm as movement journal and as stock list, both narrowed by the same filter.
///
/// It takes the farm, the key date and a storage place from the shared state and leaves there which year is open. Other
/// year files than the open one are only written by a change of year and by "Bestände des Vorjahres nicht
/// berücksichtigen", which carry stocks forward.
class LagerbestandNeu final : public QDialog {
    Q_OBJECT

public:
    explicit LagerbestandNeu(QWidget* parent = nullptr);
    ~LagerbestandNeu() override;

    void done(int result) override; ///< Closing, in whatever way: remembers the state of the screen.

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void verdrahteAlles();

    void Form_Load();
    void Form_Activate();
    void Form_Unload();
    void drpJahr_Click();
    void drpArtikelGruppe_Click();
    void SSTab1_Click();
    void Journaldaten_Reposition();
    void Bestanddaten_Reposition();
    void M_Vorjahr_Click(bool ohne);

    void LagerDateiEinstellen();
    void AuswahllistenFullen();
    void FilterEinstellen();
    bool journalGezeigt() const;

    int gewaehltesJahr() const;
    void bindeJahr();
    void zeigeJahr();
    void zeigeStatus(const QString& hinweis = {});
    void kehreZurueck();
    void schreibeWeiter();
    void aktualisiere();
    void waehleAlle();
    void zeigeAlles();
    void fuelleJahre();
    void stelleWiederHer();
    void uebernimmLagerort();
    Filterlisten filterlisten() const;
    QString gewaehlteEingrenzung() const;
    bool stelleFilterSicher();
    bool zeigtGewaehltes() const;
    void zeigeBestandsliste();
    void nachErstemMalen();

    std::unique_ptr<Ui::LagerbestandNeu> ui;
    DataControl* Journaldaten;
    DataControl* Bestanddaten;
    std::optional<Hauptansicht> m_haupt; ///< The two with their grids.
    Auswertung* m_auswertung;
    QString m_gebundenesJahr; ///< The year that both views show.
    bool m_ersteAktivierung = false;
    bool m_liestLange = false;        ///< Reading the views took over a second last time.
    QString m_gezeigteEingrenzung;    ///< What the views were last narrowed to; empty: that failed.
    bool m_dateiAntwortet = false;    ///< A statement on the open year has succeeded.
    bool m_gemalt = false;            ///< Seen for the first time; until then the stock list waits.
    bool m_wiederhergestellt = false; ///< The remembered state was shown, and may be remembered anew.
};
