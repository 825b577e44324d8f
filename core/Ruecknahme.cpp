#include "core/Ruecknahme.h"

#include "core/Modulzustand.h"
#include "core/farm/Buchung.h"
#include "platform/jet/Appender.h"
#include "platform/jet/Conversion.h"
#include "platform/jet/TextOrder.h"

#include <zablager/DatabaseError.h>

#include <QScopeGuard>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using Werte = std::vector<jet::Value>;

std::unique_ptr<jet::Recordset> zeileMit(jet::Database& journal, qint64 ID)
{
    return journal.OpenRecordset(u"SELECT * FROM LAGERJOURNAL WHERE ID = "_s + QString::number(ID));
}

Werte werte(const jet::Recordset& zeile)
{
    Werte werte;
    if (zeile.Eof()) return werte;
    for (std::size_t spalte = 0; spalte < zeile.Fields().size(); ++spalte)
        werte.push_back(zeile[static_cast<qsizetype>(spalte)]);
    return werte;
}

/// Each filtering writes the unit "Lt" of old as "l".
bool istBerichtigteEinheit(const jet::Value& vorher, const jet::Value& jetzt)
{
    return !vorher.isNull() && jet::compareTexts(vorher.toText(), u"Lt"_s) == 0 &&
           jetzt == jet::Value(u"l"_s);
}

bool stehtNochSo(const jet::Recordset& zeile, const Werte& geschrieben)
{
    const Werte jetzt = werte(zeile);
    if (jetzt.size() != geschrieben.size()) return false;
    const auto einheit = zeile.PlaceOf(u"Einheit");
    for (std::size_t spalte = 0; spalte < jetzt.size(); ++spalte)
        if (!(jetzt[spalte] == geschrieben[spalte]) &&
            !(spalte == einheit && istBerichtigteEinheit(geschrieben[spalte], jetzt[spalte])))
            return false;
    return true;
}

/// "Zukauf 25 dt Weizen vom 03.04.2026"
QString beschreibung(const Buchung& buchung)
{
    QStringList worte{buchung.Buchungsart.value_or(QString())};
    if (buchung.Menge) worte << jet::numberText(std::abs(*buchung.Menge));
    worte << buchung.Einheit.value_or(QString()) << buchung.Artikel.value_or(QString());
    if (buchung.Datum) worte << u"vom"_s << jet::dateText(buchung.Datum->startOfDay());
    worte.removeAll(QString());
    return worte.join(u' ');
}

void stelleHer(jet::Database& journal, const Ruecknahme::Zeile& zeile)
{
    const auto jetzt = zeileMit(journal, zeile.ID);
    if (zeile.vorher.empty()) return jetzt->Delete();
    if (zeile.nachher.empty()) return jet::Appender(journal, u"LAGERJOURNAL"_s).Add(zeile.vorher);
    jetzt->Edit();
    for (std::size_t spalte = 0; spalte < zeile.vorher.size(); ++spalte)
        if (const auto& feld = jetzt->Fields()[spalte]; feld.type != jet::Type::Counter)
            jetzt->Set(feld.name, zeile.vorher[spalte]);
    jetzt->Update();
}

} // namespace

void Aufzeichnung::vorher(qint64 ID)
{
    const auto zeile = zeileMit(m_journal, ID);
    if (m_ruecknahme.zeilen.empty() && !zeile->Eof()) m_ruecknahme.was = beschreibung(gelesen(*zeile));
    m_ruecknahme.zeilen.push_back({ID, werte(*zeile), {}});
}

void Aufzeichnung::neu(qint64 ID)
{
    m_ruecknahme.zeilen.push_back({ID, {}, {}});
}

void Aufzeichnung::fertig() noexcept
{
    try {
        merke();
    } catch (...) { // an error now would be taken for one of the write, and the booking be written twice
        return;
    }
}

void Aufzeichnung::merke()
{
    liesGeschriebenes();
    auto& zeilen = m_ruecknahme.zeilen;
    std::erase_if(zeilen, [](const auto& zeile) { return zeile.vorher == zeile.nachher; });
    if (zeilen.empty()) return;
    const auto& erste = zeilen.front();
    if (!m_hatNamen)
        m_ruecknahme.was.prepend(erste.vorher.empty()    ? u"die neue Eintragung "_s
                                 : erste.nachher.empty() ? u"die Löschung von "_s
                                                         : u"die Änderung von "_s);
    modulzustand().Ruecknahmen.push_back(std::move(m_ruecknahme));
}

void Aufzeichnung::liesGeschriebenes()
{
    for (auto& zeile : m_ruecknahme.zeilen) {
        const auto jetzt = zeileMit(m_journal, zeile.ID);
        zeile.nachher = werte(*jetzt);
        if (m_ruecknahme.was.isEmpty() && !jetzt->Eof()) m_ruecknahme.was = beschreibung(gelesen(*jetzt));
    }
}

Zurueckgenommen nimmZurueck(jet::Database& journal)
{
    auto& ruecknahmen = modulzustand().Ruecknahmen;
    if (ruecknahmen.empty())
        return {false, u"Es gibt keine Eintragung, die zurückgenommen werden kann."_s, {}};
    const Ruecknahme letzte = ruecknahmen.back();
    journal.BeginTrans(); // from the look at the rows to the last write nobody else writes
    auto nichts = qScopeGuard([&] { journal.Rollback(); });
    for (const auto& zeile : letzte.zeilen) {
        if (stehtNochSo(*zeileMit(journal, zeile.ID), zeile.nachher)) continue;
        ruecknahmen.pop_back();
        return {false,
                u"Nicht zurückgenommen werden kann "_s + letzte.was +
                    u": Die Zeile steht nicht mehr so im Journal, wie sie geschrieben wurde."_s,
                {}};
    }
    for (const auto& zeile : letzte.zeilen)
        stelleHer(journal, zeile);
    journal.CommitTrans();
    nichts.dismiss();
    ruecknahmen.pop_back();
    const auto& erste = letzte.zeilen.front();
    return {true, u"Zurückgenommen: "_s + letzte.was,
            erste.vorher.empty() ? std::nullopt : std::optional(erste.ID)};
}
