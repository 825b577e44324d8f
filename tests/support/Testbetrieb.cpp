#include "tests/support/Testbetrieb.h"

#include "core/Modulzustand.h"
#include "host/Einrichtung.h"
#include "platform/system/Clock.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

jet::Value oderNull(const QString& text)
{
    return text == u"NULL"_s ? jet::Value() : jet::Value(text);
}

QString text(const jet::Value& wert)
{
    return wert.isNull() ? u"NULL"_s : wert.toText();
}

} // namespace

sys::Answer Meldungsprotokoll::show(const QString& text, int flags)
{
    m_texte.append(text);
    if (m_dabei) m_dabei();
    if ((flags & (sys::YesNo | sys::AbortRetryIgnore)) == 0) return sys::Answer::OK;
    const auto antwort = std::find_if(m_antworten.rbegin(), m_antworten.rend(),
                                      [&](const auto& eintrag) { return eintrag.first == text; });
    if (antwort != m_antworten.rend()) return antwort->second;
    if (m_jede) return *m_jede;
    ADD_FAILURE() << "a question without an answer: " << text.toStdString();
    return (flags & sys::YesNo) != 0 ? sys::Answer::No : sys::Answer::Abort;
}

QStringList Meldungsprotokoll::abgeholt()
{
    return std::exchange(m_texte, {});
}

QStringList gezeigt(jet::Database& datei, const QString& abfrage)
{
    QStringList zeilen;
    const auto ergebnis = datei.OpenRecordset(abfrage, jet::Kind::Snapshot);
    for (; !ergebnis->Eof(); ergebnis->MoveNext()) {
        QStringList zellen;
        for (qsizetype i = 0; i < qsizetype(ergebnis->Fields().size()); ++i)
            zellen.append(text((*ergebnis)[i]));
        zeilen.append(zellen.join(u" | "_s));
    }
    return zeilen;
}

Testbetrieb::Testbetrieb(QDate Stichtag, const QString& Betriebsnummer)
    : m_ort(m_ordner.path()), m_betriebsnummer(Betriebsnummer), m_umleitung(m_meldungen)
{
    sys::stelleUhr(Stichtag);
    modulzustand() = {};
    modulzustand().Stichdatum = Stichtag;
    modulzustand().Betriebsnummer = Betriebsnummer;
    richteEin(Stichtag.year());
}

Testbetrieb::~Testbetrieb()
{
    EXPECT_EQ(m_meldungen.abgeholt(), QStringList());
    jet::engine().release();
    modulzustand() = {};
    sys::stelleUhr({});
    qunsetenv("XDG_CONFIG_HOME");
}

std::unique_ptr<jet::Database> Testbetrieb::oeffne(int jahr) const
{
    return jet::engine().OpenDatabase(journaldatei(jahr));
}

void Testbetrieb::richteEin(int jahr) const
{
    ::richteEin(m_ort, m_betriebsnummer, jahr);
}

void Testbetrieb::bucht(int jahr, const char* text) const
{
    richteEin(jahr);
    const auto datei = oeffne(jahr);
    const auto journal = datei->OpenRecordset(u"LAGERJOURNAL"_s, jet::Kind::Table);
    for (const Zeile& zeile : zeilen(text)) {
        journal->AddNew();
        journal->Set(u"Datum", QDate::fromString(zeile.tag + QString::number(jahr), u"dd.MM.yyyy"_s));
        journal->Set(u"LagerortKurzKu", oderNull(zeile.ort));
        journal->Set(u"Artikel", oderNull(zeile.artikel));
        journal->Set(u"Menge", zeile.menge);
        journal->Set(u"Buchungsart", zeile.buchungsart);
        journal->Update();
    }
}

void Testbetrieb::fuehreAus(int jahr, const QString& anweisung) const
{
    oeffne(jahr)->Execute(anweisung);
}

std::vector<Zeile> Testbetrieb::journal(int jahr) const
{
    std::vector<Zeile> alle;
    const auto datei = oeffne(jahr);
    const auto zeilen = datei->OpenRecordset(u"SELECT * FROM LAGERJOURNAL ORDER BY ID"_s, jet::Kind::Snapshot);
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        const jet::Recordset& zeile = *zeilen;
        const QDate tag = zeile[u"Datum"].toDate();
        alle.push_back({tag.toString(tag.year() == jahr ? u"dd.MM."_s : u"dd.MM.yyyy"_s),
                        text(zeile[u"LagerortKurzKu"]), text(zeile[u"Artikel"]), zeile[u"Menge"].toDouble(),
                        text(zeile[u"Buchungsart"])});
    }
    return alle;
}
