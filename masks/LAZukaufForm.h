#pragma once

#include "masks/Erfassungsmaske.h"

namespace Ui {
class LAZukaufForm;
}

struct Buchungsart;
struct Buchungsbild;

/// The mask for every booking at one storage place: purchase, production, opening stock, shrinkage, disposal, own
/// consumption and sale. The shared state says which, and whether the journal's current row is changed.
class LAZukaufForm final : public Erfassungsmaske {
    Q_OBJECT

public:
    explicit LAZukaufForm(const Hauptansicht& haupt, QWidget* parent = nullptr);
    ~LAZukaufForm() override;

    void AmpelEinstellen() override;
    void Ansichteinstellen() override;
    void FelderFullen() override;

private:
    void Form_Load();
    void passeAn();
    void zeigeSpalten(const Buchung& zeile) override;
    void ermittlePreis(const QString& artikel);
    void txtMenge_Change() override;
    void txtBetrag_Change();
    void berechneBestaende();
    void berechneBetrag();
    void txtPreisFaktor_Change();
    void txtPreisFaktor_Validate(Cancel& cancel);
    void zeigePreiseinheit();
    double preisfaktor() const;
    double gebuchteMenge() const;

    bool darfSpeichern() override;
    void merkeEinstellungen() override;
    void ergaenze(Buchung& buchung) override;
    void leereFuerNaechste() override;

    std::unique_ptr<Ui::LAZukaufForm> ui;
    const Buchungsart& m_art;
    const Buchungsbild& m_bild;
    DataControl* m_handlerDaten;
    QString m_bepreisterArtikel; ///< The article whose price was last looked up, trimmed and in lower case.
};
