#pragma once

#include "core/Ruecknahme.h"

#include <QDate>
#include <QString>

#include <vector>

/// The day that stands for "never set": day 0 of the date numbers in year files.
inline QDate nulldatum()
{
    return {1899, 12, 30};
}

/// What all screens and procedures of the process share. Methods of Lagerverwaltungsdaten fill it from their
/// object; the last call wins, whatever object it came from.
struct Modulzustand {
    QString Artikelname;
    QString Lagername; ///< Short code of a storage place.
    QDate Stichdatum = nulldatum();
    QString Jahr;       ///< Year of the key date, "2024"; on the screen the open year.
    QString Lagerdatei; ///< Full name of the open journal file.
    QString Stammverzeichnis;
    QString Waehrung;
    QString Lagerpasswort; ///< Connect text with which the screens open the journal.
    QString Anlagenverzeichnis;
    QString Anlagenpasswort;
    QString Betriebpasswort;
    QString Betriebsname;
    QString Betriebsnummer;
    QString Betriebsadresse;
    QString Herkunft;
    QString Datenverzeichnis;
    QString Hilfedatei; ///< What F1 opens.

    QString AktBuchungsart;       ///< Booking kind of the mask that is open or opened next.
    bool BildschirmOffen = false; ///< The main screen is shown; there is only one in a process.
    bool Aenderungsmodus = false; ///< The mask changes the current journal row instead of booking a new one.

    /// Of the open year, the last one at the end.
    std::vector<Ruecknahme> Ruecknahmen;
};

/// The state of this process; it lives as long as the component is loaded.
Modulzustand& modulzustand();
