#include "overview/Auswertungsdatei.h"

#include "core/Journaldatei.h"
#include "core/Modulzustand.h"
#include "core/Verzeichnisse.h"
#include "core/farm/Dateien.h"
#include "overview/Registerhinweis.h"
#include "platform/jet/Engine.h"
#include "platform/system/Files.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype LaengeGiftigkeit = 255;

void reichereZeileAn(jet::Recordset& zeile, jet::Recordset& mittel)
{
    mittel.FindFirst(u"NAME = '"_s + zeile[u"Artikel"].toText() + u"'"_s);
    if (mittel.NoMatch()) return;
    zeile.Edit();
    zeile.Set(u"Gruppe", mittel[u"Gruppe"]);
    const jet::Value& giftig = mittel[u"Giftig"];
    zeile.Set(u"Giftigkeit",
              giftig.isNull() ? jet::Value() : jet::Value(giftig.toText().left(LaengeGiftigkeit)));
    zeile.Update();
}

std::unique_ptr<jet::Database> oeffneRegister(const QString& Jahr)
{
    try {
        return oeffne(Dateiart::ZABStammdaten, stammdatei(ProgrammVerzeichnis(), Jahr));
    } catch (const jet::Error& fehler) {
        if (fehler.number() != jet::ErrorNumber::FileNotFound) throw;
        throw jet::Error(fehler.number(), fehler.text() + u' ' + registerhinweis(Jahr));
    }
}

} // namespace

bool Auswertungsdatei::baue(const QString& eingrenzung, const QString& Jahr) const
{
    if (sys::underErrorReport({[&] { legeAn(); }}) != sys::Outcome::Done)
        return false; // the rows of an earlier print would stand under a new heading
    auto angereichert = sys::Outcome::Done;
    const auto ausgang = sys::underErrorReport({
        [&] { kopiere(eingrenzung); },
        [&] { ergaenzeSpalte(u"Gruppe Text(100)"_s); },
        [&] { ergaenzeSpalte(u"Giftigkeit Text(255)"_s); },
        [&] { angereichert = reichereAn(Jahr); },
    });
    if (ausgang != sys::Outcome::Left && angereichert != sys::Outcome::Left) return true;
    sys::underErrorReport({[&] { loesche(); }});
    return false;
}

void Auswertungsdatei::loesche() const
{
    if (sys::Exist(m_datei)) sys::Kill(m_datei);
}

void Auswertungsdatei::legeAn() const
{
    loesche();
    jet::engine().CreateDatabase(m_datei, u";LANGID=0x0409;CP=1252;COUNTRY=0"_s)->Close();
}

void Auswertungsdatei::kopiere(const QString& eingrenzung) const
{
    oeffneJournaldatei()->Execute(
        u"Select IIF(Menge < 0, -Menge,0) as Abgang, IIF(Menge > 0, Menge,0) as Zugang, LAGERJOURNAL.*"
        u" INTO JOURNAL IN '"_s +
        m_datei + u"' FROM LAGERJOURNAL "_s + eingrenzung);
}

void Auswertungsdatei::ergaenzeSpalte(const QString& spalte) const
{
    jet::engine().OpenDatabase(m_datei)->Execute(u"ALTER TABLE Journal ADD COLUMN "_s + spalte);
}

/// All rows in one commit: nobody else has this file, and a commit for each would be felt. An article that
/// cannot be looked up is reported once and does not cost the others theirs.
sys::Outcome Auswertungsdatei::reichereAn(const QString& Jahr) const
{
    const auto stamm = oeffneRegister(Jahr);
    const auto mittel = stamm->OpenRecordset(u"SELECT * FROM PFLANZENSCHUTZMITTEL"_s, jet::Kind::Dynaset);
    const auto auswertung = jet::engine().OpenDatabase(m_datei);
    auswertung->BeginTrans();
    const auto zeilen = auswertung->OpenRecordset(
        u"SELECT * FROM JOURNAL WHERE ARTIKELART = 'Pflanzenschutzmittel'"_s, jet::Kind::Dynaset);
    QSet<QString> gescheitert;
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        const QString artikel = (*zeilen)[u"Artikel"].toText();
        if (gescheitert.contains(artikel)) continue;
        gescheitert.insert(artikel);
        const auto ausgang = sys::underErrorReport({[&] {
            reichereZeileAn(*zeilen, *mittel);
            gescheitert.remove(artikel);
        }});
        if (ausgang == sys::Outcome::Left) return ausgang;
    }
    auswertung->CommitTrans();
    return sys::Outcome::Done;
}
