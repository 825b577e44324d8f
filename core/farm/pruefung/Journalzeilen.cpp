#include "core/farm/pruefung/Journalzeilen.h"

#include "core/farm/Buchungsarten.h"
#include "platform/jet/Conversion.h"
#include "platform/jet/TextOrder.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int AufEinmal = 20000; // rows: their values take more memory than what is kept of them

qint64 zahl(const QString& text)
{
    bool istZahl = false;
    const qint64 gelesen = text.toLongLong(&istZahl);
    return istZahl ? gelesen : 0;
}

class Leser {
public:
    Leser(const jet::Recordset& zeilen, Journalzeilen& ziel)
        : m_zeilen(zeilen), m_ziel(ziel), m_umbuchung(ziel.texte.nummer(buchungsart::Umbuchung.toString()))
    {}

    /// Of the columns in the order of the statement.
    void nimm()
    {
        Journalzeile zeile;
        zeile.ID = m_zeilen[0].toLong();
        if (const jet::Value datum = m_zeilen[1]; !datum.isNull())
            zeile.tag = jet::dayNumber(datum.toDateTime());
        zeile.menge = m_zeilen[2].toDouble();
        zeile.artikel = text(3);
        zeile.art = text(4);
        zeile.ort = text(5);
        zeile.einheit = text(6);
        zeile.buchungsart = text(7);
        zeile.empfaenger = text(8);
        if (zeile.buchungsart == m_umbuchung) zeile.partner = zahl(m_zeilen[9].toText());
        zeile.lieferschein = m_zeilen[10].toLong();
        m_ziel.zeilen.push_back(zeile);
    }

private:
    int text(qsizetype spalte)
    {
        const jet::Value wert = m_zeilen[spalte];
        return wert.isNull() ? 0 : m_ziel.texte.nummer(wert.toText());
    }

    const jet::Recordset& m_zeilen;
    Journalzeilen& m_ziel;
    const int m_umbuchung;
};

} // namespace

bool Textnummern::Kleiner::operator()(const QString& links, const QString& rechts) const
{
    return jet::compareTexts(links, rechts) < 0;
}

int Textnummern::nummer(const QString& text)
{
    if (const auto gelesen = m_gelesene.constFind(text); gelesen != m_gelesene.cend()) return *gelesen;
    const auto [gleiche, istNeu] = m_gleiche.try_emplace(text, static_cast<int>(m_texte.size()));
    if (istNeu) m_texte.push_back(text);
    m_gelesene.insert(text, gleiche->second);
    return gleiche->second;
}

std::optional<int> Textnummern::bekannt(const QString& text) const
{
    const auto gleiche = m_gleiche.find(text);
    return gleiche == m_gleiche.end() ? std::nullopt : std::optional(gleiche->second);
}

Journalzeilen liesJournal(jet::Database& journal)
{
    Journalzeilen alle;
    qint64 ab = std::numeric_limits<int>::min() - qint64(1); // counters of old files drew negative ones too
    for (bool weiter = true; weiter;) {
        const auto zeilen = journal.OpenRecordset(
            u"SELECT TOP %1 ID, Datum, Menge, Artikel, Artikelart, LagerortKurzKu, Einheit, Buchungsart,"
            u" Uberstallt_alt, Verfuttert_an, Lieferscheinnummer FROM LAGERJOURNAL"_s
            u" WHERE ID > %2 ORDER BY ID"_s.arg(AufEinmal)
                .arg(ab),
            jet::Kind::Snapshot);
        Leser leser(*zeilen, alle);
        for (; !zeilen->Eof(); zeilen->MoveNext())
            leser.nimm();
        weiter = zeilen->RecordCount() == AufEinmal;
        if (!alle.zeilen.empty()) ab = alle.zeilen.back().ID;
    }
    return alle;
}
