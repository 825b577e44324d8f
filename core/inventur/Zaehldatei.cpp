#include "core/inventur/Zaehldatei.h"

#include "core/Datumstext.h"
#include "core/SQLTexte.h"
#include "core/farm/Buchungsarten.h"
#include "platform/system/Files.h"
#include "platform/system/Path.h"

#include <zablager/FileError.h>

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

QJsonArray alsJson(const Zaehldatei::Zaehlungen& zahlen)
{
    QJsonArray liste;
    for (const auto& [paar, zahl] : zahlen)
        liste.append(QJsonObject{
            {u"Artikel"_s, paar.Artikel}, {u"Lagerort"_s, paar.LagerortKurzKu}, {u"Zahl"_s, zahl}});
    return liste;
}

Zaehldatei::Zaehlungen gelesen(const QJsonValue& json)
{
    Zaehldatei::Zaehlungen zahlen;
    for (const auto& zeile : json.toArray())
        zahlen[{zeile[u"Artikel"].toString(), zeile[u"Lagerort"].toString()}] = zeile[u"Zahl"].toDouble();
    return zahlen;
}

} // namespace

/// Beside the journal, whose year is its ending: "Zaehlung.2026".
Zaehldatei::Zaehldatei(const QString& journaldatei)
    : m_datei(QFileInfo(sys::localPath(journaldatei)).path() + u"/Zaehlung."_s +
              QFileInfo(journaldatei).suffix())
{}

void Zaehldatei::lies(jet::Database& journal)
{
    m_tag = {};
    m_zaehlungen.clear();
    m_mengen.clear();
    m_hoechsteID = -1;
    QFile datei(m_datei);
    if (!datei.exists()) return;
    if (!datei.open(QIODevice::ReadOnly))
        throw sys::FileError(sys::FileErrorNumber::AccessDenied,
                             u"Zugriff verweigert: '"_s + m_datei + u"'."_s);
    const QJsonDocument inhalt = QJsonDocument::fromJson(datei.readAll());
    m_tag = QDate::fromString(inhalt[u"Tag"].toString(), Qt::ISODate);
    if (!m_tag.isValid())
        throw sys::FileError(sys::FileErrorNumber::AccessDenied,
                             u"Die Datei '"_s + m_datei + u"' ist keine Zählung dieses Programms."_s);
    m_zaehlungen = gelesen(inhalt[u"Zaehlungen"]);
    m_mengen = gelesen(inhalt[u"Mengen"]);
    if (m_mengen.empty()) return;
    m_hoechsteID = inhalt[u"HoechsteID"].toInteger();
    streicheGebuchte(journal);
}

/// After an end between the commit of the journal and erledigt().
void Zaehldatei::streicheGebuchte(jet::Database& journal)
{
    const auto zeilen = journal.OpenRecordset(
        u"SELECT Artikel, LagerortKurzKu, Menge FROM LAGERJOURNAL WHERE ID > "_s +
            QString::number(m_hoechsteID) + u" AND Buchungsart = '"_s + buchungsart::Korrektur.toString() +
            u"' AND Datum = "_s + SQLDatum(datumText(m_tag)),
        jet::Kind::Snapshot);
    Zaehlungen geschrieben;
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        const Paar paar{(*zeilen)[u"Artikel"].toText(), (*zeilen)[u"LagerortKurzKu"].toText()};
        const auto notiert = m_mengen.find(paar);
        if (notiert != m_mengen.end() && (*zeilen)[u"Menge"].toDouble() == notiert->second)
            geschrieben.insert(*notiert);
    }
    m_mengen = std::move(geschrieben);
    erledigt();
}

void Zaehldatei::setTag(QDate tag)
{
    m_tag = tag;
    if (!m_zaehlungen.empty()) schreibe();
}

void Zaehldatei::merke(const Paar& paar, std::optional<double> gezaehlt)
{
    m_zaehlungen.erase(paar);
    if (gezaehlt) m_zaehlungen.emplace(paar, *gezaehlt);
    schreibe();
}

void Zaehldatei::merkeBuchung(qint64 hoechsteID, const Zaehlungen& mengen)
{
    m_hoechsteID = hoechsteID;
    m_mengen = mengen;
    schreibe();
}

void Zaehldatei::erledigt()
{
    for (const auto& gebucht : m_mengen)
        m_zaehlungen.erase(gebucht.first);
    m_mengen.clear();
    m_hoechsteID = -1;
    schreibe();
}

void Zaehldatei::schreibe() const
{
    if (m_zaehlungen.empty()) {
        if (sys::Exist(m_datei)) sys::Kill(m_datei);
        return;
    }
    QJsonObject inhalt{{u"Tag"_s, m_tag.toString(Qt::ISODate)}, {u"Zaehlungen"_s, alsJson(m_zaehlungen)}};
    if (!m_mengen.empty()) {
        inhalt[u"HoechsteID"_s] = m_hoechsteID;
        inhalt[u"Mengen"_s] = alsJson(m_mengen);
    }
    sys::writeWhole(m_datei, QJsonDocument(inhalt).toJson());
}
