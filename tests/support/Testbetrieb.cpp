#include "tests/support/Testbetrieb.h"

#include "core/Modulzustand.h"
#include "host/Einrichtung.h"
#include "platform/system/Clock.h"

#include <QLocale>

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
    richteEin(m_ort, m_betriebsnummer, Stichtag.year());
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

void Testbetrieb::bucht(int jahr, const char* text) const
{
    richteEin(m_ort, m_betriebsnummer, jahr);
    const auto datei = oeffne(jahr);
    const auto journal = datei->OpenRecordset(u"LAGERJOURNAL"_s);
    for (const QString& zeile : zeilen(text)) {
        const QStringList zellen = zeile.split(u" | "_s);
        journal->AddNew();
        journal->Set(u"Datum",
                     QDate::fromString(zellen.at(0).trimmed() + QString::number(jahr), u"dd.MM.yyyy"_s));
        journal->Set(u"LagerortKurzKu", oderNull(zellen.at(1)));
        journal->Set(u"Artikel", oderNull(zellen.at(2)));
        journal->Set(u"Menge", QLocale(QLocale::German).toDouble(zellen.at(3)));
        journal->Set(u"Buchungsart", zellen.at(4));
        journal->Update();
    }
}

void Testbetrieb::fuehreAus(int jahr, const QString& anweisung) const
{
    oeffne(jahr)->Execute(anweisung);
}

QStringList Testbetrieb::journal(int jahr) const
{
    return zeigt(jahr,
                 u"SELECT Datum, LagerortKurzKu, Artikel, Menge, Buchungsart FROM LAGERJOURNAL ORDER BY ID"_s)
        .replaceInStrings(QString::number(jahr) + u" |"_s, u" |"_s);
}
