#include "core/farm/umbenennung/Journalname.h"

#include "core/farm/Buchungsarten.h"
#include "core/farm/Jahresdateien.h"
#include "platform/jet/Errors.h"
#include "platform/jet/Rounding.h"
#include "platform/jet/TextLiteral.h"
#include "platform/jet/TextOrder.h"

#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int Stellen = 4; // as every view of stocks

QString text(const jet::Value& wert)
{
    return wert.isNull() ? QString() : wert.toText();
}

double zahl(const jet::Value& wert)
{
    return wert.isNull() ? 0 : wert.toDouble();
}

/// "'Zukauf', 'Verkauf', ...": the kinds that masks write.
QString eigeneArten()
{
    QStringList arten;
    for (const Buchungsart& art : buchungsarten())
        arten.append(jet::textLiteral(art.name.toString()));
    return arten.join(u", "_s);
}

/// The same name may come from another row, in another spelling.
bool sindGleich(const std::vector<std::pair<QString, double>>& eine,
                const std::vector<std::pair<QString, double>>& andere)
{
    return std::ranges::equal(eine, andere, [](const auto& a, const auto& b) {
        return jet::compareTexts(a.first, b.first) == 0 && a.second == b.second;
    });
}

} // namespace

/// Of the two rows that a carry-forward would find, the later one goes.
struct Journalname::Anfangsbestand {
    QString anderer; ///< The place of an article, the article of a place.
    qint64 bleibt = 0, geht = 0;
};

Journalname::Journalname(jet::Database& journal, const Umbenennung& umbenennung)
    : m_journal(journal), m_umbenennung(umbenennung), m_spalte(journalspalte(umbenennung.was).toString()),
      m_andere(umbenennung.was == Namensart::Lagerort ? u"Artikel"_s : u"LagerortKurzKu"_s)
{}

QString Journalname::gleich(const QString& name) const
{
    return m_spalte + u" = "_s + jet::textLiteral(name);
}

QStringList Journalname::texte(const QString& frage) const
{
    QStringList gefunden;
    const auto zeilen = m_journal.OpenRecordset(frage, jet::Kind::Snapshot);
    for (; !zeilen->Eof(); zeilen->MoveNext())
        gefunden.append(text((*zeilen)[0]));
    return gefunden;
}

qsizetype Journalname::zeilen() const
{
    return m_journal
        .OpenRecordset(u"SELECT ID FROM LAGERJOURNAL WHERE "_s + gleich(m_umbenennung.alt),
                       jet::Kind::Snapshot)
        ->RecordCount();
}

std::vector<qint64> Journalname::fremdeZeilen() const
{
    std::vector<qint64> nummern;
    const auto zeilen =
        m_journal.OpenRecordset(u"SELECT ID FROM LAGERJOURNAL WHERE "_s + gleich(m_umbenennung.alt) +
                                    u" AND (IIF(Isnull(BEErfassungsnummer), 0, BEErfassungsnummer) > 0 OR NOT"
                                    u" IIF(Isnull(Buchungsart), '', Buchungsart) IN ("_s +
                                    eigeneArten() + u")) ORDER BY ID"_s,
                                jet::Kind::Snapshot);
    for (; !zeilen->Eof(); zeilen->MoveNext())
        nummern.push_back((*zeilen)[0].toLong());
    return nummern;
}

QStringList Journalname::gemeinsame() const
{
    if (m_umbenennung.nurSchreibweise() || m_umbenennung.was == Namensart::Partner) return {};
    const auto mit = [&](const QString& name) {
        return texte(u"SELECT DISTINCT "_s + m_andere + u" FROM LAGERJOURNAL WHERE "_s + gleich(name) +
                     u" AND "_s + m_andere + u" <> ''"_s);
    };
    const QStringList neue = mit(m_umbenennung.neu);
    QStringList gemeinsame;
    for (const QString& anderer : mit(m_umbenennung.alt))
        if (std::ranges::any_of(neue, [&](const QString& n) { return jet::compareTexts(n, anderer) == 0; }))
            gemeinsame.append(anderer);
    return gemeinsame;
}

QStringList Journalname::unvereinbare() const
{
    QStringList gruende;
    for (const QString& anderer : gemeinsame()) {
        const QString beide = u" FROM LAGERJOURNAL WHERE ("_s + gleich(m_umbenennung.alt) + u" OR "_s +
                              gleich(m_umbenennung.neu) + u") AND "_s + m_andere + u" = "_s +
                              jet::textLiteral(anderer);
        for (const auto& [spalte, was] :
             {std::pair{u"Einheit"_s, u"Einheiten"_s}, {u"Artikelart"_s, u"Artikelarten"_s}})
            if (const QStringList werte = texte(u"SELECT DISTINCT "_s + spalte + beide); werte.size() > 1)
                gruende.append(anderer + u": verschiedene "_s + was + u" ("_s + werte.join(u", "_s) + u')');
    }
    return gruende;
}

std::vector<Journalname::Anfangsbestand> Journalname::doppelteAnfangsbestaende() const
{
    std::vector<Anfangsbestand> doppelte;
    const auto ersteVon = [&](const QString& name, const QString& anderer) -> qint64 {
        const auto erste = m_journal.OpenRecordset(
            u"SELECT Min(ID) AS Erste FROM LAGERJOURNAL WHERE "_s + gleich(name) + u" AND "_s + m_andere +
                u" = "_s + jet::textLiteral(anderer) + u" AND Buchungsart = "_s +
                jet::textLiteral(buchungsart::Anfangsbestand.toString()),
            jet::Kind::Snapshot);
        return (*erste)[0].isNull() ? 0 : (*erste)[0].toLong();
    };
    for (const QString& anderer : gemeinsame()) {
        const qint64 alte = ersteVon(m_umbenennung.alt, anderer);
        const qint64 neue = ersteVon(m_umbenennung.neu, anderer);
        if (alte > 0 && neue > 0) doppelte.push_back({anderer, std::min(alte, neue), std::max(alte, neue)});
    }
    return doppelte;
}

/// What lies at each place, or of each article, under these names together.
std::vector<std::pair<QString, double>> Journalname::bestaende(const QStringList& namen,
                                                               const QStringList& ohneID) const
{
    QStringList bedingungen;
    for (const QString& name : namen)
        bedingungen.append(gleich(name));
    QString frage = u"SELECT "_s + m_andere + u", Sum(Menge) AS Summe FROM LAGERJOURNAL WHERE ("_s +
                    bedingungen.join(u" OR "_s) + u')';
    if (!ohneID.isEmpty()) frage += u" AND NOT ID IN ("_s + ohneID.join(u", "_s) + u')';
    std::vector<std::pair<QString, double>> gefunden;
    const auto zeilen = m_journal.OpenRecordset(frage + u" GROUP BY "_s + m_andere, jet::Kind::Snapshot);
    for (; !zeilen->Eof(); zeilen->MoveNext())
        gefunden.emplace_back(text((*zeilen)[0]), jet::Round(zahl((*zeilen)[1]), Stellen));
    return gefunden;
}

bool Journalname::schreibe(jet::Database* vorjahr)
{
    const auto& [was, alt, neu, betrieb] = m_umbenennung;
    m_journal.BeginTrans();
    auto nichts = qScopeGuard([this] { m_journal.Rollback(); });
    if (zeilen() == 0) return false;
    const auto doppelte =
        vorjahr && uebernimmtVorjahr(m_journal) ? doppelteAnfangsbestaende() : std::vector<Anfangsbestand>();
    QStringList gepflegte;
    for (const Anfangsbestand& paar : doppelte)
        gepflegte << QString::number(paar.bleibt) << QString::number(paar.geht);
    const auto vorher = bestaende({alt, neu}, gepflegte);
    for (const Anfangsbestand& paar : doppelte)
        m_journal.Execute(u"DELETE FROM LAGERJOURNAL WHERE ID = "_s + QString::number(paar.geht));
    m_journal.Execute(u"UPDATE LAGERJOURNAL SET "_s + m_spalte + u" = "_s + jet::textLiteral(neu) +
                      u" WHERE "_s + gleich(alt));
    for (const Anfangsbestand& paar : doppelte) {
        const auto ende =
            vorjahr->OpenRecordset(u"SELECT Sum(Menge) AS Summe FROM LAGERJOURNAL WHERE "_s + gleich(neu) +
                                       u" AND "_s + m_andere + u" = "_s + jet::textLiteral(paar.anderer),
                                   jet::Kind::Snapshot);
        const auto bleibt = m_journal.OpenRecordset(u"SELECT ID, Menge FROM LAGERJOURNAL WHERE ID = "_s +
                                                    QString::number(paar.bleibt));
        bleibt->Edit();
        bleibt->Set(u"Menge", zahl((*ende)[0]));
        bleibt->Update();
    }
    if (!sindGleich(bestaende({neu}, gepflegte), vorher))
        throw jet::Error(jet::ErrorNumber::InvalidArgument,
                         u"Die Bestände von '"_s + neu +
                             u"' wären danach andere als die Summe der vorigen."
                             u" Datei: '"_s +
                             m_journal.Name() + u"'."_s);
    m_journal.CommitTrans();
    nichts.dismiss();
    return true;
}
