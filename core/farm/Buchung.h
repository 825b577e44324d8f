#pragma once

#include "platform/jet/Recordset.h"

#include <QDate>
#include <QString>

#include <optional>
#include <tuple>

/// A row of the journal as a value, its columns by their names. A column without a value is NULL where a row
/// was read, and is left alone where one is written.
struct Buchung {
    std::optional<qint64> ID;
    std::optional<QDate> Datum;
    std::optional<QString> Artikel, Artikelart, LagerortKurzKu;
    std::optional<double> Menge;         ///< In `Einheit`; negative: goods leave.
    std::optional<double> Buchungsmenge; ///< What was typed for it.
    std::optional<double> Preis;         ///< For `Preisfaktor` of `Einheit`.
    std::optional<QString> Preisfaktor, Einheit, Buchungsart;
    std::optional<qint64> BuchungsID,
        BEErfassungsnummer; ///< Of the sibling program that booked it; 0: of none.
    std::optional<QString> Kommentar;
    std::optional<QString> Uberstallt_alt; ///< Short code of the business partner.
    std::optional<QString> Verfuttert_an;  ///< ID of the other row of a transfer; else a mark of the goods.
    std::optional<qint64> Lieferscheinnummer;
    std::optional<QString> Untergruppe;
};

namespace buchung {

template <class Wert>
struct Spalte {
    QStringView name;
    std::optional<Wert> Buchung::*wert;
};
template <class Wert>
Spalte(QStringView, std::optional<Wert> Buchung::*)
    -> Spalte<Wert>; // some compilers do not find it themselves

inline constexpr std::tuple Spalten{
    Spalte{u"ID", &Buchung::ID},
    Spalte{u"Datum", &Buchung::Datum},
    Spalte{u"Artikel", &Buchung::Artikel},
    Spalte{u"Artikelart", &Buchung::Artikelart},
    Spalte{u"LagerortKurzKu", &Buchung::LagerortKurzKu},
    Spalte{u"Menge", &Buchung::Menge},
    Spalte{u"Buchungsmenge", &Buchung::Buchungsmenge},
    Spalte{u"Preis", &Buchung::Preis},
    Spalte{u"Preisfaktor", &Buchung::Preisfaktor},
    Spalte{u"Einheit", &Buchung::Einheit},
    Spalte{u"Buchungsart", &Buchung::Buchungsart},
    Spalte{u"BuchungsID", &Buchung::BuchungsID},
    Spalte{u"BEErfassungsnummer", &Buchung::BEErfassungsnummer},
    Spalte{u"Kommentar", &Buchung::Kommentar},
    Spalte{u"Uberstallt_alt", &Buchung::Uberstallt_alt},
    Spalte{u"Verfuttert_an", &Buchung::Verfuttert_an},
    Spalte{u"Lieferscheinnummer", &Buchung::Lieferscheinnummer},
    Spalte{u"Untergruppe", &Buchung::Untergruppe},
};

} // namespace buchung

/// The current row of a journal, or of what shows all its columns. A file that could not be brought up to
/// date lacks the newest ones, which then have no value.
Buchung gelesen(const jet::Recordset& journal);

/// Sets the columns that have a value in the row that is being added or edited: of a Recordset or a
/// DataControl. \throws jet::Error FieldTooLong and what else a column refuses, with its name.
template <class Zeile>
void setze(Zeile& zeile, const Buchung& buchung)
{
    const auto setzeSpalte = [&](const auto& spalte) {
        if (const auto& wert = buchung.*spalte.wert) zeile.Set(spalte.name, jet::Value(*wert));
    };
    std::apply([&](const auto&... spalte) { (setzeSpalte(spalte), ...); }, buchung::Spalten);
}
