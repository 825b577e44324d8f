#pragma once

#include <QString>
#include <QStringView>

#include <span>

/// What opens for a short code.
enum class Maske { Buchung, Korrektur, Umbuchung };

/// One kind of new entry, as the list of the short entry shows it.
struct Kurzel {
    QStringView kurzel;      ///< The letter that starts it.
    QStringView eintragung;  ///< "Art der Eintragung" in the list.
    QStringView Buchungsart; ///< The kind that its rows get.
    Maske maske;
};

/// All of them, in the order of the list.
std::span<const Kurzel> kurzelliste();

/// The entry of a short code; null when no entry has it. "K" has none and opens nothing.
const Kurzel* kurzelZu(QStringView kurzel);
/// The entry whose rows have a booking kind; null for rows that other programs write.
const Kurzel* kurzelZuBuchungsart(QStringView Buchungsart);
