#pragma once

#include "masks/Bestandswarnung.h"
#include "masks/Einzelbuchung.h"
#include "masks/Lagerstand.h"
#include "masks/Maskenfenster.h"

#include <memory>
#include <optional>

namespace Ui {
class LAKorrekturForm;
}

/// The mask for a count: the user enters the stock that is there, the difference to the booked one becomes a
/// row.
class LAKorrekturForm final : public Maskenfenster {
    Q_OBJECT

public:
    explicit LAKorrekturForm(const Hauptansicht& haupt, QWidget* parent = nullptr);
    ~LAKorrekturForm() override;

    void AmpelEinstellen(); ///< Sets the traffic light by the count.
    void FelderFullen();    ///< Computes the figures for article and place.

private:
    /// What the stocks show: what the journal has, or 0 after "Speichern und &nächster" or after a look-up
    /// that failed.
    enum class Bisher { Bekannt, Geleert, Unbekannt };

    void Form_Load();
    void zeigeZaehlung();
    void zeigeBisher();
    void ermittleEinheit();
    void berechneDifferenz();
    void txtMenge_Change();
    void zeigeWarnung();

    void ermittleStand();
    bool istGezaehlt() const;
    void schreibe();
    void leereFuerNaechste();

    std::unique_ptr<Ui::LAKorrekturForm> ui;
    Einzelbuchung* m_buchung = nullptr;
    std::optional<Lagerstand> m_stand;
    std::optional<Bestandswarnung> m_warnung;
    Bisher m_bisher = Bisher::Unbekannt;
    bool m_gezaehlt = false; ///< The user has typed a count.
};
