#pragma once

#include "masks/Bestandswarnung.h"
#include "masks/Einzelbuchung.h"
#include "masks/Lagerstand.h"
#include "masks/Maskenfenster.h"

#include <memory>
#include <optional>

namespace Ui {
class LAZukaufForm;
}

struct Buchungsart;
struct Buchungsbild;

/// The mask for every booking at one storage place: purchase, production, opening stock, shrinkage, disposal,
/// own consumption and sale. The shared state says which, and whether the journal's current row is changed.
class LAZukaufForm final : public Maskenfenster {
    Q_OBJECT

public:
    explicit LAZukaufForm(const Hauptansicht& haupt, QWidget* parent = nullptr);
    ~LAZukaufForm() override;

    void AmpelEinstellen();   ///< Sets the traffic light by the new stocks.
    void Ansichteinstellen(); ///< Shows and hides fields for the kind of article.
    void FelderFullen();      ///< Computes the figures for article, place and day.

private:
    void richteFelderEin();
    void ordneAn();
    void verdrahteFelder();
    void Form_Load();
    void passeAn();
    void uebernimmZeile();
    void ermittlePreis(const QString& artikel);
    void txtMenge_Change();
    void txtBetrag_Change();
    void berechneBestaende();
    void berechneBetrag();
    void zeigeWarnung();
    void txtPreisFaktor_Change();
    void txtPreisFaktor_Validate(Cancel& cancel);
    void zeigePreiseinheit();
    double preisfaktor() const;
    double gebuchteMenge() const;

    bool darfOhnePartner() const;
    void merkeEinstellungen();
    void schreibe();
    void leereFuerNaechste();

    std::unique_ptr<Ui::LAZukaufForm> ui;
    const Buchungsart& m_art;
    const Buchungsbild& m_bild;
    DataControl* m_handlerDaten;
    Einzelbuchung* m_buchung = nullptr;
    std::optional<Lagerstand> m_stand;
    std::optional<Bestandswarnung> m_warnung;
    QString m_bepreisterArtikel; ///< The article whose price was last looked up, trimmed and in lower case.
};
