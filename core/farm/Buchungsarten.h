#pragma once

#include <QStringView>

#include <span>

/// What opens for a kind of booking.
enum class Maske { Buchung, Korrektur, Umbuchung };

/// How the booking mask looks for a kind.
struct Buchungsbild {
    QStringView Mengentitel;
    QStringView Werttitel;
    bool mitPreis;       ///< Prices and business partner are asked for.
    bool mitBisher;      ///< The stock before the booking is shown.
    QStringView Hinweis; ///< Empty: none.
};

/// A kind of booking.
struct Buchungsart {
    QStringView kurzel;     ///< The letter of the short entry that starts it.
    QStringView eintragung; ///< "Art der Eintragung" in its list.
    QStringView name;       ///< What rows of the journal have.
    bool ausgang;           ///< Typed without sign, stored negative.
    Maske maske;
    Buchungsbild bild; ///< Of the booking mask; the other masks have none.
};

/// The kinds that the program itself writes or treats in a way of their own, as rows have them.
namespace buchungsart {
inline constexpr QStringView Anfangsbestand = u"Anfangsbestand";
inline constexpr QStringView Korrektur = u"Korrektur";
inline constexpr QStringView Umbuchung = u"Umbuchung";
inline constexpr QStringView Verkauf = u"Verkauf";
inline constexpr QStringView Zukauf = u"Zukauf";
} // namespace buchungsart

/// All of them, in the order of the short entry's list.
std::span<const Buchungsart> buchungsarten();

/// The kind of a short code; null when none has it. "K" has none and opens nothing.
const Buchungsart* buchungsartZuKurzel(QStringView kurzel);
/// The kind of a row; null for rows that other programs write.
const Buchungsart* buchungsartZu(QStringView name);
