#pragma once

#include "host/demo/Sortiment.h"

#include <QDate>
#include <QMap>
#include <QString>

#include <utility>
#include <vector>

/// One booking of the demo farm; a transfer is one of them and becomes two rows.
struct Vorgang {
    QDate tag;
    QString buchungsart;
    const Ware* ware = nullptr; ///< Of the calendar's Sortiment.
    QString ort;
    qint64 menge = 0; ///< Hundredths of the unit; negative: goods leave.
    QString partner, merkmal, kommentar;
    bool ausSchollwart = false; ///< The field records have booked it.
    const Ware* nachWare = nullptr;
    QString nachOrt; ///< Target of a transfer, else empty.
};

/// What happens on the demo farm in a year: the lines of install/demo/kalender.csv, each repeated at its
/// interval.
///
/// Stocks run along, as nobody takes out what is not there: an issue that would leave less than nothing takes
/// the rest, and "90 %" is that share of what lies there. So the years must be asked one after the other.
class Hofkalender {
public:
    explicit Hofkalender(const Sortiment& sortiment);

    /// The opening stocks by hand, dated 1 January.
    std::vector<Vorgang> anfangsbestand(int jahr);
    /// The bookings of the year in their order.
    std::vector<Vorgang> jahr(int jahr);

private:
    struct Eintrag { ///< One line of the calendar.
        Vorgang muster;
        QString beginn; ///< "24.07."
        int abstand = 0, anzahl = 0;
        qint64 menge = 0; ///< As a user types it: without a sign when goods leave.
        bool istAnteil = false;
        int streuung = 0; ///< Percent.
    };
    struct Termin {
        QDate tag;
        const Eintrag* eintrag = nullptr;
        quint64 stelle = 0; ///< Tells it from all other dates of its year.
    };

    static Eintrag eintrag(const Sortiment& sortiment, const QHash<QString, QString>& zeile);
    std::vector<Termin> termine(int jahr) const;
    qint64 menge(const Termin& termin) const;
    qint64& bestand(const Ware& ware, const QString& ort) { return m_bestaende[{ware.name, ort}]; }

    const Sortiment* m_sortiment;
    std::vector<Eintrag> m_eintraege;
    QMap<std::pair<QString, QString>, qint64> m_bestaende; // by article and place
};
