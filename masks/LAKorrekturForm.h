#pragma once

#include "masks/Erfassungsmaske.h"

namespace Ui {
class LAKorrekturForm;
}

/// The mask for a count: the user enters the stock that is there, the difference to the booked one becomes a row.
class LAKorrekturForm final : public Erfassungsmaske {
    Q_OBJECT

public:
    explicit LAKorrekturForm(const Hauptansicht& haupt, QWidget* parent = nullptr);
    ~LAKorrekturForm() override;

    void AmpelEinstellen() override;
    void FelderFullen() override;

private:
    /// What the stocks show: what the journal has, or 0 after "Speichern und &nächster" or after a look-up that failed.
    enum class Bisher { Bekannt, Geleert, Unbekannt };

    void Form_Load();
    void zeigeZaehlung();
    void zeigeBisher();
    void ermittleEinheit();
    void berechneDifferenz();
    void txtMenge_Change() override;

    bool darfSpeichern() override;
    void ergaenze(Buchung& buchung) override;
    void leereFuerNaechste() override;

    std::unique_ptr<Ui::LAKorrekturForm> ui;
    Bisher m_bisher = Bisher::Unbekannt;
    bool m_gezaehlt = false; ///< The user has typed a count.
};
