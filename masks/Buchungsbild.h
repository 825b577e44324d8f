#pragma once

#include <QString>
#include <QStringView>

/// How the booking mask looks and counts for one kind of booking.
struct Buchungsbild {
    QStringView Buchungsart;
    QStringView Mengentitel;
    QStringView Werttitel;
    bool mitPreis;       ///< Prices and business partner are asked for.
    bool mitBisher;      ///< The stock before the booking is shown.
    bool ausgang;        ///< Typed without sign, stored negative.
    QStringView Hinweis; ///< Empty: none.
};

/// The picture of a kind; that of "Zukauf" for a text that is none.
const Buchungsbild& buchungsbildZu(QStringView Buchungsart);
