#pragma once

#include "platform/jet/Database.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

/// Whose stock is looked at.
struct Verlaufsziel {
    QString Artikel;
    QString LagerortKurzKu; ///< Empty: at all places together.
};

/// A day with bookings.
struct Tagesstand {
    QDate tag;
    double Zugang = 0, Abgang = 0; ///< Neither is negative.
    double Bestand = 0;            ///< On its evening, to 4 decimals.
    qsizetype erste = 0;           ///< The place of its first booking among all.
    qsizetype anzahl = 0;          ///< Of its bookings.
};

/// The stock on each day of a year that has bookings, ascending.
struct Jahreskurve {
    int jahr = 0;
    std::vector<Tagesstand> tage;
};

/// A booking and what lies there after it, to 4 decimals.
struct Verlaufsbuchung {
    qint64 ID = 0;
    QDate tag;
    QString Buchungsart, LagerortKurzKu, Uberstallt_alt, Kommentar;
    double Menge = 0, Bestand = 0;
};

/// The stock through one year file, which begins with the file's own opening rows and knows of no other year.
/// The file is only read. Rows without a day are no part of it, as in every stock.
class Jahresverlauf {
public:
    /// \throws jet::Error.
    Jahresverlauf(int jahr, std::unique_ptr<jet::Database> datei, const Verlaufsziel& ziel);

    const Jahreskurve& kurve() const { return m_kurve; }
    qsizetype buchungen() const { return m_zeilen->RecordCount(); }
    /// By its place in the order of day and number, from 0; none where another program has deleted it
    /// meanwhile. Reads the rows of its day. \throws jet::Error.
    std::optional<Verlaufsbuchung> buchung(qsizetype platz) const;
    /// The place of a booking; -1: it is none of these.
    qsizetype platz(qint64 ID) const;
    /// The units that the article is booked in; in more than one its sum means nothing.
    const QStringList& einheiten() const { return m_einheiten; }

private:
    void liesTage(const QString& bedingung);

    std::unique_ptr<jet::Database> m_datei;
    std::unique_ptr<jet::Recordset> m_zeilen; ///< Keys only: a row is read when it is looked at.
    Jahreskurve m_kurve;
    QStringList m_einheiten;
};
