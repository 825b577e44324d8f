#include "core/farm/pruefung/Buchungspruefung.h"

#include "core/farm/Buchungsarten.h"
#include "platform/jet/Conversion.h"

#include <QDate>
#include <QSet>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

double tageszahl(QDate tag)
{
    return jet::dayNumber(QDateTime(tag, QTime(0, 0), Qt::UTC));
}

QString tagtext(double tag)
{
    return jet::dateText(jet::fromDayNumber(tag));
}

void pruefeTage(const Journalzeilen& journal, int jahr, Befunde& befunde)
{
    const double erster = tageszahl(QDate(jahr, 1, 1));
    const double letzter = tageszahl(QDate(jahr, 12, 31));
    for (const Journalzeile& zeile : journal.zeilen) {
        if (!zeile.tag)
            befunde.nenne(Befundart::FalschesJahr, u"Die Buchung hat kein Datum."_s,
                          u"'zablager sql' kann ihr eines geben"_s, zeile.ID);
        else if (*zeile.tag < erster || *zeile.tag >= letzter + 1)
            befunde.nenne(Befundart::FalschesJahr,
                          u"Die Buchung vom "_s + tagtext(*zeile.tag) + u" liegt außerhalb ihres Jahres."_s,
                          u"'Von Datum' und 'Bis Datum' so setzen, dass sie zu sehen ist, und sie ändern"_s,
                          zeile.ID);
        else if (*zeile.tag > letzter)
            befunde.nenne(Befundart::LetzterTagMitUhrzeit,
                          u"Die Buchung vom "_s + tagtext(*zeile.tag) +
                              u" hat eine Uhrzeit und ist in keinem"_s + u" Endbestand."_s,
                          u"'Bis Datum' einen Tag weiter setzen und ihr Datum neu eingeben"_s, zeile.ID);
    }
}

/// Each row of a pair names the other; one that nobody names has lost its other row.
void pruefeUmbuchungen(const Journalzeilen& journal, Befunde& befunde)
{
    const auto umbuchung = journal.texte.bekannt(buchungsart::Umbuchung.toString());
    QSet<qint64> genannte;
    for (const Journalzeile& zeile : journal.zeilen)
        if (zeile.partner != 0) genannte.insert(zeile.partner);
    for (const Journalzeile& zeile : journal.zeilen)
        if (zeile.buchungsart == umbuchung && !genannte.contains(zeile.ID))
            befunde.nenne(Befundart::HalbeUmbuchung,
                          u"Der Umbuchung von '"_s + journal.texte.text(zeile.artikel) +
                              u"' fehlt ihre andere Zeile."_s,
                          u"löschen und neu umbuchen"_s, zeile.ID);
}

void pruefeLieferscheine(const Journalzeilen& journal, Befunde& befunde)
{
    const auto verkauf = journal.texte.bekannt(buchungsart::Verkauf.toString());
    const auto nenne = [&](const Journalzeile& zeile, const Journalzeile& andere) {
        befunde.nenne(
            Befundart::NummerZuZweiLieferungen,
            u"Der Lieferschein %1 gehört auch zu einer anderen Lieferung (Nr. %2)."_s.arg(zeile.lieferschein)
                .arg(andere.ID),
            u"Tag und Empfänger im Bewegungsjournal vergleichen"_s, zeile.ID);
    };
    QHash<qint64, const Journalzeile*> erste;
    QSet<qint64> doppelte;
    for (const Journalzeile& zeile : journal.zeilen) {
        if (zeile.lieferschein == 0 || zeile.buchungsart != verkauf) continue;
        const Journalzeile*& gemerkte = erste[zeile.lieferschein];
        if (!gemerkte) gemerkte = &zeile;
        const Journalzeile& andere = *gemerkte;
        if (andere.tag == zeile.tag && andere.empfaenger == zeile.empfaenger) continue;
        if (!doppelte.contains(zeile.lieferschein)) nenne(andere, zeile);
        doppelte.insert(zeile.lieferschein);
        nenne(zeile, andere);
    }
}

} // namespace

void pruefeBuchungen(const Journalzeilen& journal, int jahr, Befunde& befunde)
{
    pruefeTage(journal, jahr, befunde);
    pruefeUmbuchungen(journal, befunde);
    pruefeLieferscheine(journal, befunde);
}

void pruefeZaehler(const Journalzeilen& journal, jet::Database& kopie, Befunde& befunde)
{
    if (journal.zeilen.empty()) return;
    const auto zeilen = kopie.OpenRecordset(u"LAGERJOURNAL"_s);
    zeilen->AddNew();
    zeilen->Set(u"Artikel", jet::Value(u"x"_s));
    zeilen->Update();
    zeilen->SetBookmark(zeilen->LastModified());
    const qint64 naechste = (*zeilen)[u"ID"].toLong();
    for (const Journalzeile& zeile : journal.zeilen)
        if (zeile.ID >= naechste || zeile.partner >= naechste)
            return befunde.nenne(
                Befundart::Zaehler,
                u"Die nächste Buchung bekäme die Nummer %1; die Zeile %2 nennt schon %3."_s.arg(naechste)
                    .arg(zeile.ID)
                    .arg(std::max(zeile.ID, zeile.partner)),
                u"die Umbuchung löschen und neu umbuchen"_s, zeile.ID);
}
