#pragma once

#include "core/farm/Buchung.h"
#include "platform/jet/Database.h"

#include <map>
#include <utility>
#include <vector>

class QLabel;

/// The line of a mask that says where a booking makes the stock of a later evening negative, or more so than
/// it is already: the lamp knows only the end of the year. There is nothing to answer.
///
/// The sums by day of each pair are read when it is first looked at and again when another program has
/// written meanwhile, so that a key costs no more than the look whether one has.
class Bestandswarnung {
public:
    explicit Bestandswarnung(QLabel& zeile) : m_zeile(zeile) {}

    /// The rows that are being changed, as they stand in the journal: what they leave is looked at, too.
    void setVorher(std::vector<Buchung> zeilen) { m_vorher = std::move(zeilen); }
    /// Says it of the rows as they would be written; of a mask that is not filled yet nothing.
    void zeige(const std::vector<Buchung>& neue);

private:
    using Paar = std::pair<QString, QString>; // article and place in the form that masks compare
    using Tagessummen = std::map<QDate, double>;

    const Tagessummen& summen(const Paar& paar);
    QString satz(const std::vector<Buchung>& neue);

    QLabel& m_zeile;
    std::vector<Buchung> m_vorher;
    jet::ChangeMark m_marke; ///< Of the file that the sums were read from.
    std::map<Paar, Tagessummen> m_summen;
};
