#pragma once

#include <QString>
#include <QStringView>

#include <span>

/// A kind of article, and where the master data (Dateiart::Grundstamm) keep its articles.
struct Artikelart {
    QStringView name;    ///< As rows of the journal have it.
    QStringView tabelle; ///< Of the master data.
    QStringView ordnung; ///< What ends a statement over it.

    /// The statement of its articles up to a further condition; blocked ones are never offered.
    QString abfrage() const;
};

/// All kinds, in the order in which masks offer them.
std::span<const Artikelart> artikelarten();

/// The kind of a name; null for any other text.
const Artikelart* artikelartZu(QStringView name);

// Those that masks treat in a way of their own.
inline constexpr QStringView Zwischenfruchtsaatgut = u"Zwischenfruchtsaatgut";
inline constexpr QStringView Saatgut = u"Saatgut/Sorten";
inline constexpr QStringView Wirtschaftsduenger = u"Wirtschaftsdünger";
inline constexpr QStringView Futtermittel = u"Futtermittel";
/// The one whose articles are always offered from the journal: they are grown, not bought.
inline constexpr QStringView PflanzlicheErzeugnisse = u"Pflanzliche Erzeugnisse";
/// The one that a register tells more about.
inline constexpr QStringView Pflanzenschutzmittel = u"Pflanzenschutzmittel";
