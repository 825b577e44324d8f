#pragma once

#include <QString>

#include <optional>

/// A year of a farm whose journal holds a name.
struct Verwendung {
    QString Betrieb;
    int jahr;
};

/// The newest year of any farm below a data directory in whose journal a row has the text in that column:
/// "Artikel", "LagerortKurzKu" or "Uberstallt_alt". Master data serve all of these farms, and journals
/// know articles, places and partners by these texts alone: who changes one there tears the stock in two.
/// \throws jet::Error of a year that cannot be read: it may hold the name.
std::optional<Verwendung> verwendung(const QString& datenverzeichnis, QStringView spalte,
                                     const QString& text);
