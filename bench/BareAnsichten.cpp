#include "bench/BareAnsichten.h"

namespace {

/// `%m` is the quantity as the list adds it up. The planner is told that the days take in most of the year:
/// it then reads the groups along their index instead of sorting rows into them.
constexpr char Bestandsliste[] =
    "SELECT sum(CASE WHEN %m<0 THEN -%m ELSE 0.0 END),sum(CASE WHEN %m>0 THEN %m ELSE 0.0 "
    "END),sum(%m),Artikel,"
    "LagerortKurzKu,Artikelart,Einheit,Untergruppe,min(_rowid_) FROM LAGERJOURNAL"
    " WHERE Artikel<>'xx' %C AND likely(Datum>=?) AND likely(Datum<=?)"
    " GROUP BY Artikel %C,LagerortKurzKu %C,Artikelart %C,Einheit %C ORDER BY Artikel %C";

} // namespace

BareAnsichten::BareAnsichten(const QString& datei)
    : m_datei(datei), m_reparatur(m_datei, "UPDATE LAGERJOURNAL SET Einheit='l' WHERE Einheit='Lt' %C"
                                           " AND Artikelart='Pflanzenschutzmittel' %C"),
      m_schluessel(m_datei,
                   "SELECT _rowid_ FROM LAGERJOURNAL WHERE Artikel<>'xx' %C AND Datum>=? AND Datum<=?"
                   " ORDER BY Datum,ID"),
      m_bestandsliste(m_datei, QByteArray(Bestandsliste).replace("%m", "jet_round(ifnull(Menge,0),4)"))
{}

void BareAnsichten::repariere()
{
    m_reparatur.run();
}

std::vector<qint64> BareAnsichten::schluessel(const QByteArray& von, const QByteArray& bis)
{
    std::vector<qint64> schluessel;
    m_schluessel.bind(1, von);
    m_schluessel.bind(2, bis);
    while (m_schluessel.step())
        schluessel.push_back(m_schluessel.whole(0));
    m_schluessel.reset();
    return schluessel;
}

std::vector<Bestandszeile> BareAnsichten::bestandsliste(const QByteArray& von, const QByteArray& bis)
{
    std::vector<Bestandszeile> zeilen;
    m_bestandsliste.bind(1, von);
    m_bestandsliste.bind(2, bis);
    while (m_bestandsliste.step())
        zeilen.push_back({m_bestandsliste.text(3), m_bestandsliste.text(4), m_bestandsliste.number(1),
                          m_bestandsliste.number(0), m_bestandsliste.number(2)});
    m_bestandsliste.reset();
    return zeilen;
}
