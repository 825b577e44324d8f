#pragma once

#include "platform/jet/Database.h"

#include <QString>

class AmpelLED;
class NumberEdit;

/// A name as masks compare it: trimmed and in lower case. Another spelling is no other article.
QString vergleichsform(const QString& name);

/// What masks show while a booking is typed: the stock of the whole year file, whatever the booking's day, in
/// the unit of the bookings. Names are compared trimmed and in lower case. The row that is being changed,
/// `ID`, does not count; a new booking passes 0, which no row has. \throws jet::Error, as for a name with an
/// apostrophe.

/// Over all storage places.
double lagerstand(jet::Database& journal, const QString& Artikel, qint64 ID);
/// At one storage place, given by its short code.
double lagerstand(jet::Database& journal, const QString& Artikel, const QString& Lagerort, qint64 ID);

/// The stocks before a booking as a mask shows them, and its lamp.
class Lagerstand {
public:
    static constexpr int Gruen = 1, Rot = 3; ///< Of the lamp.

    Lagerstand(NumberEdit& bisher, NumberEdit* bisherGesamt, AmpelLED& Ampel);

    void leere(); ///< Where a look-up fails no other article's stock may stay.
    /// Of an article at a place and, where the mask has a field for it, at all of them. \throws jet::Error as
    /// lagerstand().
    void lies(const QString& Artikel, const QString& Lagerort, qint64 ID);
    void zeigeAmpel(bool negativ); ///< Red or green.

private:
    NumberEdit& m_bisher;
    NumberEdit* m_bisherGesamt;
    AmpelLED& m_Ampel;
};
