#include "delivery/Lieferscheinnummern.h"

#include "core/Journaldatei.h"
#include "core/SQLTexte.h"
#include "platform/jet/NumberFormat.h"
#include "platform/system/ErrorReport.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool fehlenNummern(jet::Database& journal)
{
    const auto verkaeufe = journal.OpenRecordset(
        u"SELECT * FROM LAGERJOURNAL WHERE IIF(ISNULL(LIEFERSCHEINNUMMER),0,LIEFERSCHEINNUMMER) = 0"
        u" AND BUCHUNGSART = 'Verkauf' AND LEN(TRIM(IIF(ISNULL(UBERSTALLT_ALT),'',UBERSTALLT_ALT))) > 0"_s,
        jet::Kind::Dynaset);
    return !verkaeufe->Eof();
}

qint64 naechsteNummer(jet::Database& journal)
{
    const auto verkaeufe =
        journal.OpenRecordset(u"SELECT * FROM LAGERJOURNAL WHERE BUCHUNGSART = 'Verkauf'"
                              u" AND LEN(TRIM(IIF(ISNULL(UBERSTALLT_ALT),'',UBERSTALLT_ALT))) > 0"
                              u" ORDER BY LIEFERSCHEINNUMMER DESC"_s,
                              jet::Kind::Dynaset);
    return verkaeufe->Eof() ? 1 : (*verkaeufe)[u"LIEFERSCHEINNUMMER"].toLong() + 1;
}

} // namespace

bool Lieferscheinnummern::vergib()
{
    for (;;) {
        const auto ausgang = sys::underErrorReport({[&] { nummeriere(); }});
        if (ausgang == sys::Outcome::Left) return false;
        if (ausgang == sys::Outcome::Done || !m_empfaenger)
            return true; // what was ignored concerns all deliveries, such as a lock
        m_uebergangen.push_back(*m_empfaenger);
    }
}

/// An error closes the file, which keeps what was numbered before it; all else is read anew by the next run.
void Lieferscheinnummern::nummeriere()
{
    m_empfaenger.reset();
    const auto journal = oeffneJournal(m_jahr);
    if (!fehlenNummern(*journal)) return;
    journal->BeginTrans(); // before the highest number is looked up: two programs must not go on from the
                           // same one
    qint64 nummer = naechsteNummer(*journal);
    const auto lieferungen = journal->OpenRecordset(
        u"Select DISTINCT DATUM, UBERSTALLT_ALT FROM LAGERJOURNAL"
        u" WHERE IIF(ISNULL(LIEFERSCHEINNUMMER),0,LIEFERSCHEINNUMMER) = 0 AND BUCHUNGSART = 'Verkauf'"
        u" AND LEN(TRIM(IIF(ISNULL(UBERSTALLT_ALT),'',UBERSTALLT_ALT))) > 0"_s,
        jet::Kind::Snapshot);
    for (; !lieferungen->Eof(); lieferungen->MoveNext()) {
        const jet::Value& datum = (*lieferungen)[u"DATUM"];
        if (datum.isNull()) continue; // no delivery: verkaeufeOhneDatum tells of it
        const QString empfaenger = (*lieferungen)[u"UBERSTALLT_ALT"].toText();
        if (std::ranges::find(m_uebergangen, empfaenger) != m_uebergangen.end()) continue;
        m_empfaenger = empfaenger;
        const QString tag = datum.toText(); // with its time: at another one is another delivery
        // The recipient as it stands: a blank before the name makes another one, here as in the list above.
        journal->Execute(
            u"UPDATE LAGERJOURNAL SET LIEFERSCHEINNUMMER = "_s + QString::number(nummer) +
            u" WHERE IIF(ISNULL(LIEFERSCHEINNUMMER),0,LIEFERSCHEINNUMMER) = 0 AND BUCHUNGSART = 'Verkauf'"
            u" AND IIF(ISNULL(UBERSTALLT_ALT),'',UBERSTALLT_ALT) = '"_s +
            empfaenger + u"' AND DATUM = "_s + SQLDatum(tag));
        ++nummer;
    }
    m_empfaenger.reset();
    journal->Close();
}

QStringList verkaeufeOhneDatum(int Jahr)
{
    const auto journal = oeffneJournal(Jahr);
    const auto verkaeufe = journal->OpenRecordset(
        u"SELECT ID, ARTIKEL, MENGE, EINHEIT, UBERSTALLT_ALT FROM LAGERJOURNAL WHERE ISNULL(DATUM)"
        u" AND IIF(ISNULL(LIEFERSCHEINNUMMER),0,LIEFERSCHEINNUMMER) = 0 AND BUCHUNGSART = 'Verkauf'"
        u" AND LEN(TRIM(IIF(ISNULL(UBERSTALLT_ALT),'',UBERSTALLT_ALT))) > 0 ORDER BY ID"_s,
        jet::Kind::Snapshot);
    QStringList zeilen;
    for (; !verkaeufe->Eof(); verkaeufe->MoveNext()) {
        const double menge = 0 - (*verkaeufe)[u"MENGE"].toDouble(); // sales are negative in the journal
        const QString was = (*verkaeufe)[u"ARTIKEL"].toText() + u", "_s +
                            jet::formatted(menge, u"##,##0.00##") + u' ' + (*verkaeufe)[u"EINHEIT"].toText();
        zeilen.append(was.trimmed() + u" an "_s + (*verkaeufe)[u"UBERSTALLT_ALT"].toText().trimmed() +
                      u", Nummer "_s + (*verkaeufe)[u"ID"].toText() + u" im Journal"_s);
    }
    return zeilen;
}
