#pragma once

#include "masks/Maskenfelder.h"
#include "platform/controls/DataControl.h"

#include <QDialog>

#include <memory>
#include <optional>

class Auswertung;
class Filterleiste;
class Jahreswahl;
namespace Ui {
class LagerbestandNeu;
}

/// The main screen: one year of a farm as movement journal and as stock list, both narrowed by the same
/// filter.
///
/// It takes the farm, the key date and a storage place from the shared state and leaves there which year is
/// open. Other year files than the open one are only written by a change of year and by "Bestände des
/// Vorjahres nicht berücksichtigen", which carry stocks forward.
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
    void errichteFilter();
    void errichteBefehle();
    void verdrahteAlles();

    void Form_Load();
    void Form_Activate();
    void Form_Unload();
    void drpJahr_Click();
    void SSTab1_Click();
    void Journaldaten_Reposition();
    void M_Vorjahr_Click(bool ohne);

    bool journalGezeigt() const;
    void aktualisiere();
    void zeigeBuchung();
    void zeigeAlles();
    void stelleWiederHer();
    void uebernimmLagerort();

    std::unique_ptr<Ui::LagerbestandNeu> ui;
    DataControl* Journaldaten;
    DataControl* Bestanddaten;
    std::optional<Hauptansicht> m_haupt; ///< The two with their grids.
    Auswertung* m_auswertung;
    Jahreswahl* m_jahr = nullptr;
    Filterleiste* m_filter = nullptr;
    bool m_ersteAktivierung = false;
    bool m_wiederhergestellt = false; ///< The remembered state was shown, and may be remembered anew.
};
