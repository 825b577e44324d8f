#pragma once

#include "masks/Artikelwahl.h"
#include "masks/Buchungstag.h"
#include "masks/Lagerortwahl.h"
#include "masks/Maskenfelder.h"
#include "masks/Speicherweg.h"

#include <vector>

class Maskenfenster;
class Maskenfuss;
class Maskenkopf;
class TextBox;

/// What the masks for bookings at one place share: the fields that each of their rows has, from the day to
/// the comment.
class Einzelbuchung : public QObject {
public:
    struct Felder {
        Maskenkopf& kopf;
        Maskenfuss& fuss;
        NumberEdit& txtMenge;
        TextBox& txtEinheit;
        AmpelLED& Ampel;
    };
    /// What follows for another article follows for another place or day, too. `anfaenge`: what the mask's
    /// own groups begin with, between quantity and comment.
    Einzelbuchung(const Felder& felder, const Artikelwahl::Folgen& folgen, Maskenfenster& maske,
                  std::initializer_list<QWidget*> anfaenge = {});

    Artikelwahl& artikel() { return *m_artikel; }
    Lagerortwahl& ort() { return *m_ort; }
    TextBox& Einheit() const { return m_felder.txtEinheit; }

    void oeffne();                    ///< Title, and the tick as it was left.
    void bereiteVor() const;          ///< Lists, day and buttons; see bereiteMaskeVor().
    void zeigeErstesLeeresFeld();     ///< Where a mask begins.
    void zeigeTag() const;            ///< Where the next booking begins.
    void zeige(const Buchung& zeile); ///< The row that is changed.
    Buchung buchung() const;          ///< The row that is to be written.
    void schreibe(Buchung zeile) const;
    Speicherweg::Eingaben eingaben() const; ///< What is checked before a save.
    void merke() const;                     ///< What is remembered from one booking to the next.
    void positioniere() const;              ///< Shows the booking on the main screen.

private:
    Maskenfelder maskenfelder() const;

    const Felder m_felder;
    Maskenfenster& m_maske;
    DataControl* m_lagerauswahl;
    DataControl* m_artikelauswahl;
    Artikelwahl* m_artikel;
    Lagerortwahl* m_ort;
    Buchungstag* m_tag;
};
