#include "tests/support/Handel.h"

#include "core/Journaldatei.h"
#include "core/Lagerverwaltungsdaten.h"
#include "host/Einrichtung.h"
#include "platform/jet/Engine.h"
#include "tests/support/CsvTabelle.h"

#include <QDate>

#include <cmath>
#include <map>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Journals know places by a short code of at most 15 characters.
QString kurzKu(const QByteArray& ort)
{
    return QString::fromUtf8(ort).left(15);
}

using Paar = std::pair<QString, QString>;

Paar paar(const jet::Recordset& zeile)
{
    return {zeile[u"Artikel"].toText().trimmed().toLower(), zeile[u"LagerortKurzKu"].toText()};
}

class Vergleich {
public:
    explicit Vergleich(const std::vector<Sollbestand>& soll)
    {
        for (const Sollbestand& bestand : soll)
            m_soll[bestand.jahr].insert({{bestand.artikel, bestand.lagerort}, bestand});
    }

    Abgleich fuehreAus(const QString& betriebsnummer)
    {
        Lagerverwaltungsdaten lager({[] { return nullptr; }, {}});
        lager.setBetriebsnummer(betriebsnummer);
        lager.setStichdatum(QDate(m_soll.begin()->first, 1, 1));
        lager.Kontrolle_LagerbestandLaden();
        for (const auto& [jahr, bestaende] : m_soll) {
            frage(lager, bestaende);
            zaehlePaare(jahr);
            vergleicheAnfangszeilen(jahr);
        }
        return m_abgleich;
    }

private:
    void melde(int jahr, const Paar& paar, const QString& was)
    {
        m_abgleich.abweichungen.append(QString::number(jahr) + u" "_s + paar.first + u" / "_s + paar.second + u": "_s +
                                       was);
    }

    void frage(Lagerverwaltungsdaten& lager, const std::map<Paar, Sollbestand>& bestaende)
    {
        for (const auto& [paar, soll] : bestaende) {
            const double ist = lager.Get_Bestand(paar.first, paar.second, QDate(soll.jahr, 12, 31));
            ++m_abgleich.fragen;
            if (ist != soll.schluss)
                melde(soll.jahr, paar, QString::number(ist) + u" instead of "_s + QString::number(soll.schluss));
        }
    }

    void zaehlePaare(int jahr)
    {
        const auto journal = oeffneJournal(jahr);
        const auto paare = journal->OpenRecordset(u"SELECT DISTINCT Artikel, LagerortKurzKu FROM LAGERJOURNAL"_s);
        for (; !paare->Eof(); paare->MoveNext())
            if (!m_soll[jahr].contains(paar(*paare))) melde(jahr, paar(*paare), u"nobody expects this pair"_s);
    }

    void vergleicheAnfangszeilen(int jahr)
    {
        std::map<Paar, Sollbestand> offen = m_soll[jahr];
        const auto journal = oeffneJournal(jahr);
        const auto zeilen = journal->OpenRecordset(
            u"SELECT Artikel, LagerortKurzKu, Datum, Menge, Preis FROM LAGERJOURNAL WHERE Buchungsart = 'Anfangsbestand'"_s);
        for (; !zeilen->Eof(); zeilen->MoveNext()) {
            const auto soll = offen.find(paar(*zeilen));
            ++m_abgleich.anfangszeilen;
            if (soll == offen.end()) {
                melde(jahr, paar(*zeilen), u"nobody expects this opening row"_s);
                continue;
            }
            vergleiche(*zeilen, soll->second);
            offen.erase(soll);
        }
        for (const auto& [paar, soll] : offen)
            if (soll.anfang != 0) melde(jahr, paar, u"the opening row is missing"_s);
    }

    void vergleiche(const jet::Recordset& zeile, const Sollbestand& soll)
    {
        const double ist = zeile[u"Menge"].toDouble();
        if (ist != soll.anfang || ist == 0)
            melde(soll.jahr, paar(zeile),
                  u"opens with "_s + QString::number(ist) + u" instead of "_s + QString::number(soll.anfang));
        if (zeile[u"Datum"].toDate() != QDate(soll.jahr, 1, 1))
            melde(soll.jahr, paar(zeile), u"the opening row has another day"_s);
        const auto preis = m_soll[soll.jahr - 1][paar(zeile)].mittelpreis;
        if (!preis || std::abs(zeile[u"Preis"].toDouble() - *preis) > 1e-6)
            melde(soll.jahr, paar(zeile), u"the opening row has another price"_s);
    }

    std::map<int, std::map<Paar, Sollbestand>> m_soll;
    Abgleich m_abgleich;
};

} // namespace

std::vector<Sollbestand> leseSollbestaende(const QByteArray& csv)
{
    std::vector<Sollbestand> alle;
    for (CsvTabelle tabelle(csv); tabelle.naechste();) {
        Sollbestand soll;
        soll.artikel = QString::fromUtf8(tabelle.feld("article"));
        soll.lagerort = kurzKu(tabelle.feld("place"));
        soll.jahr = tabelle.feld("year").toInt();
        soll.anfang = tabelle.zahl("opening");
        soll.schluss = tabelle.zahl("closing");
        if (!tabelle.feld("mean_unit_price_gbp").isEmpty()) soll.mittelpreis = tabelle.zahl("mean_unit_price_gbp");
        alle.push_back(soll);
    }
    return alle;
}

int bucheBewegungen(const Installation& ort, const QString& betriebsnummer, const QByteArray& csv)
{
    int anzahl = 0;
    int jahr = 0;
    std::unique_ptr<jet::Database> datei;
    std::unique_ptr<jet::Recordset> journal;
    for (CsvTabelle tabelle(csv); tabelle.naechste(); ++anzahl) {
        const QDate tag = QDate::fromString(QString::fromLatin1(tabelle.feld("timestamp").left(10)), Qt::ISODate);
        if (tag.year() != std::exchange(jahr, tag.year())) {
            richteEin(ort, betriebsnummer, jahr);
            datei = jet::engine().OpenDatabase(ort.journaldatei(betriebsnummer, jahr)); // the year before is kept
            datei->BeginTrans();
            journal = datei->OpenRecordset(u"LAGERJOURNAL"_s, jet::Kind::Table);
        }
        const double menge = tabelle.zahl("quantity");
        journal->AddNew();
        journal->Set(u"Datum", tag);
        journal->Set(u"Artikel", QString::fromUtf8(tabelle.feld("article")));
        journal->Set(u"LagerortKurzKu", kurzKu(tabelle.feld("place")));
        journal->Set(u"Menge", menge);
        journal->Set(u"Buchungsmenge", menge);
        journal->Set(u"Preis", tabelle.zahl("unit_price_gbp"));
        journal->Set(u"Buchungsart", menge < 0 ? u"Schwund"_s : u"Zukauf"_s);
        journal->Update();
    }
    if (datei) datei->Close();
    return anzahl;
}

Abgleich gleicheAb(const QString& betriebsnummer, const std::vector<Sollbestand>& soll)
{
    return Vergleich(soll).fuehreAus(betriebsnummer);
}
