#pragma once

#include <QDate>
#include <QString>

/// The first row of each filter list; as a choice it means no restriction.
inline const QString AlleLagerorte = QStringLiteral("Alle Lagerorte");
inline const QString AlleArtikelgruppen = QStringLiteral("Alle Artikelgruppen");
inline const QString AlleArtikel = QStringLiteral("Alle Artikel");

/// What narrows both views of the main screen.
struct Filter {
    QString Lagerort = AlleLagerorte; ///< Short code.
    QString Artikelgruppe = AlleArtikelgruppen;
    QString Artikel = AlleArtikel;
    QDate von = {};
    QDate bis = {}; ///< Both days count in. Unless both are dates neither limits anything.
};

/// The statement's WHERE for a filter, with a blank before it. Names go in as they are: an apostrophe breaks
/// the statement.
QString eingrenzung(const Filter& filter);

/// How the stock list adds up.
struct Bestandsansicht {
    bool inSumme = false;  ///< One line an article, its storage places together.
    bool ohneNull = false; ///< Without the lines whose quantities sum to exactly 0.
};

/// The stock list's record source. `ordnung` begins with a blank and ORDER BY, or is empty.
QString bestandsquelle(const QString& eingrenzung, const Bestandsansicht& ansicht, const QString& ordnung);
