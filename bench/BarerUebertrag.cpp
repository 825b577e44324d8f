#include "bench/BarerUebertrag.h"

#include "bench/Bare.h"
#include "platform/jet/Rounding.h"

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr char Anfangsbestand[] = "Anfangsbestand";

/// What a row of the grouped statement says of a pair.
struct Paar {
    QByteArray artikel, lagerort, artikelart, preisfaktor, einheit;
    double preis = 0;
    bool ohnePreis = false;
};

/// The statements on one year file, prepared once.
class Jahresdatei {
public:
    explicit Jahresdatei(const QString& datei)
        : m_datei(datei), m_zaehler(m_datei, "SELECT count(*) FROM LAGERJOURNAL"),
          m_ohneVorjahr(m_datei, "SELECT OhneVorjahr FROM Einstellungen LIMIT 1"),
          m_paare(m_datei, "SELECT Artikel,LagerortKurzKu,Artikelart,avg(Preis),Preisfaktor,Einheit,min(ID)"
                           " FROM LAGERJOURNAL GROUP BY Artikel %C,LagerortKurzKu %C"
                           " ORDER BY Artikel %C,LagerortKurzKu %C"),
          m_summe(m_datei, "SELECT sum(Menge) FROM LAGERJOURNAL WHERE Datum<=? AND Artikel=? %C"
                           " AND LagerortKurzKu=? %C"),
          m_suche(m_datei, "SELECT min(ID),Menge FROM LAGERJOURNAL WHERE Artikel=? %C AND LagerortKurzKu=? %C"
                           " AND Buchungsart=? %C"),
          m_neu(m_datei,
                "INSERT INTO LAGERJOURNAL(Artikel,Artikelart,LagerortKurzKu,Preis,Preisfaktor,Einheit,Menge,"
                "BuchungsID,Buchungsart,Datum) VALUES(?,?,?,?,?,?,?,0,?,?)"),
          m_aendere(m_datei, "UPDATE LAGERJOURNAL SET Menge=? WHERE ID=?")
    {
        m_zaehler.run();
    }

    void beginne() { m_datei.execute("BEGIN IMMEDIATE"); }
    void schliesseAb() { m_datei.execute("COMMIT"); }

    bool uebernimmtVorjahr()
    {
        const bool ohne = m_ohneVorjahr.step() && m_ohneVorjahr.whole(0) != 0;
        m_ohneVorjahr.reset();
        return !ohne;
    }

    std::vector<Paar> paare()
    {
        std::vector<Paar> paare;
        while (m_paare.step())
            paare.push_back({m_paare.text(0), m_paare.text(1), m_paare.text(2), m_paare.text(4),
                             m_paare.text(5), m_paare.number(3), m_paare.isNull(3)});
        m_paare.reset();
        return paare;
    }

    double bestand(const Paar& paar, const QByteArray& tag)
    {
        m_summe.bind(1, tag);
        m_summe.bind(2, paar.artikel);
        m_summe.bind(3, paar.lagerort);
        m_summe.step();
        const double bestand = m_summe.number(0);
        m_summe.reset();
        return bestand;
    }

    void setzeAnfangsbestand(const Paar& paar, double bestand, const QByteArray& tag)
    {
        m_suche.bind(1, paar.artikel);
        m_suche.bind(2, paar.lagerort);
        m_suche.bind(3, m_buchungsart);
        const bool vorhanden = m_suche.step() && !m_suche.isNull(0);
        const qint64 id = m_suche.whole(0);
        const double bisher = m_suche.number(1);
        m_suche.reset();
        if (!vorhanden) return schreibe(paar, jet::Round(bestand, 4), tag);
        if (bisher == bestand) return;
        m_aendere.bind(1, bestand);
        m_aendere.bind(2, id);
        m_aendere.run();
    }

private:
    void schreibe(const Paar& paar, double menge, const QByteArray& tag)
    {
        if (menge == 0) return;
        m_neu.bind(1, paar.artikel);
        m_neu.bind(2, paar.artikelart);
        m_neu.bind(3, paar.lagerort);
        paar.ohnePreis ? m_neu.bindNull(4) : m_neu.bind(4, paar.preis);
        m_neu.bind(5, paar.preisfaktor);
        m_neu.bind(6, paar.einheit);
        m_neu.bind(7, menge);
        m_neu.bind(8, m_buchungsart);
        m_neu.bind(9, tag);
        m_neu.run();
    }

    const QByteArray m_buchungsart = Anfangsbestand;
    BareFile m_datei;
    BareStatement m_zaehler, m_ohneVorjahr, m_paare, m_summe, m_suche, m_neu, m_aendere;
};

} // namespace

void barerUebertrag(const QStringList& dateien, int erstesJahr)
{
    std::vector<std::unique_ptr<Jahresdatei>> jahre;
    for (const QString& datei : dateien)
        jahre.push_back(std::make_unique<Jahresdatei>(datei));
    for (std::size_t i = 0; i < jahre.size(); ++i) {
        const int jahr = erstesJahr + static_cast<int>(i);
        const auto paare = jahre[i]->paare();
        if (i + 1 == jahre.size() || !jahre[i + 1]->uebernimmtVorjahr()) continue;
        const QByteArray letzterTag = QByteArray::number(jahr) + "-12-31";
        const QByteArray ersterTag = QByteArray::number(jahr + 1) + "-01-01";
        jahre[i + 1]->beginne();
        for (const Paar& paar : paare)
            jahre[i + 1]->setzeAnfangsbestand(paar, jahre[i]->bestand(paar, letzterTag), ersterTag);
        jahre[i + 1]->schliesseAb();
    }
}
