#pragma once

#include "core/farm/Buchung.h"
#include "masks/Maskenfenster.h"
#include "platform/controls/TextBox.h"

#include <optional>

class Maskenfuss;
class Maskenkopf;

/// What the masks for bookings at one place have in common: the lists and their refreshing, the check of the article, the
/// way of a save. The shared state says what is booked and whether the journal's current row is changed.
class Erfassungsmaske : public Maskenfenster {
    Q_OBJECT

public:
    virtual void AmpelEinstellen() = 0; ///< Sets the traffic light by the figures.
    virtual void Ansichteinstellen() {} ///< Shows and hides fields for the kind of article.
    virtual void FelderFullen() = 0;    ///< Computes the figures for article, place and day.

protected:
    explicit Erfassungsmaske(const Hauptansicht& haupt, QWidget* parent);

    /// To be called by the mask when its own part is set up: names, lists, wiring. `anfaenge`: what the mask's own groups
    /// begin with, between quantity and comment.
    void verbinde(Maskenkopf& kopf, Maskenfuss& fuss, NumberEdit& txtMenge, TextBox& txtEinheit, AmpelLED& Ampel,
                  std::initializer_list<QWidget*> anfaenge = {});

    // The steps of opening, in their order.
    void stelleWiederHer(); ///< Title and ticks as they were left.
    void uebernimmZeile();  ///< The row that is changed.
    void oeffneLagerliste();
    void oeffneArtikelliste();
    void zeigeErstesLeeresFeld();

    const Maskenfelder& felder() const { return *m_felder; }
    TextBox& Einheit() const { return *m_einheit; }
    CheckBox& chkVorhanden() const;
    void zeigeVorhanden();

    virtual bool darfSpeichern();                ///< The checks before a save.
    virtual void merkeEinstellungen();           ///< What the mask remembers from one booking to the next.
    virtual void zeigeSpalten(const Buchung&) {} ///< The mask's own columns of the row that is changed.
    virtual void ergaenze(Buchung& buchung) = 0; ///< Those of the row that is to be written.
    virtual void positioniere();                 ///< Shows the booking on the main screen.
    virtual void leereFuerNaechste() = 0;        ///< After "Speichern und &nächster".
    virtual void txtMenge_Change() = 0;

private:
    void richteListenEin();
    void verdrahteKopf();
    void ladeLagerliste();
    void ladeArtikelliste();
    void zeigeLagername();
    void Command3_Click();
    void drpLagerort_Click();
    void drpGruppe_Click();
    void drpArtikel_GotFocus();
    void drpArtikel_Click();
    void drpArtikel_Validate(Cancel& cancel);
    void folgeArtikel();
    void Command2_Click(int index) override;
    void schreibe();

    DataControl* m_lagerauswahl;
    DataControl* m_artikelauswahl;
    Maskenkopf* m_kopf = nullptr;
    Maskenfuss* m_fuss = nullptr;
    TextBox* m_einheit = nullptr;
    std::optional<Maskenfelder> m_felder;
};
