#include "bench/Messbetrieb.h"

#include "bench/Messung.h"
#include "core/Modulzustand.h"
#include "host/Einrichtung.h"
#include "platform/jet/Engine.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QString Betriebsnummer = u"4711"_s;

/// Fills a year file. The rows of millions take minutes to write: a file of this size that another program of
/// the same run has left in the folder that BENCH_STORE names is copied.
void fuelle(const QString& datei, int jahr, int zeilen, int paare)
{
    const QString vorrat = qEnvironmentVariable("BENCH_STORE");
    const QString gleiche = u"%1/%2.%3.%4"_s.arg(vorrat).arg(jahr).arg(zeilen).arg(paare);
    if (vorrat.isEmpty() || !QFile::exists(gleiche)) {
        Musterjournal(jahr, zeilen, paare).schreibe(*jet::engine().OpenDatabase(datei));
        jet::engine().release();
        if (!vorrat.isEmpty()) fordere(QFile::copy(datei, gleiche), gleiche + u" cannot be written"_s);
        return;
    }
    jet::engine().release();
    fordere(QFile::remove(datei) && QFile::copy(gleiche, datei), datei + u" cannot be written"_s);
}

} // namespace

void Messbetrieb::melde(const Installation& ort)
{
    ort.verwende();
    modulzustand().Betriebsnummer = Betriebsnummer;
    modulzustand().Lagerpasswort = u";pwd=quenlor"_s;
    modulzustand().Anlagenverzeichnis = ort.anlagen();
    modulzustand().Stichdatum = QDate(ErstesJahr, 1, 1);
}

Messbetrieb::Messbetrieb(int zeilenJeJahr, int paare, int jahre) : m_ort(m_ordner.path())
{
    for (int jahr = ErstesJahr; jahr < ErstesJahr + jahre; ++jahr) {
        richteEin(m_ort, Betriebsnummer, jahr);
        fuelle(journaldatei(jahr), jahr, zeilenJeJahr, paare);
    }
    melde(m_ort);
    jet::engine().release();
}

QString Messbetrieb::journaldatei(int jahr) const
{
    return m_ort.journaldatei(Betriebsnummer, jahr);
}

QString Messbetrieb::stammdaten(int jahr) const
{
    return m_ort.programm() + u"/ZABStammdaten_"_s + QString::number(jahr) + u".mdb"_s;
}

Messbetrieb::~Messbetrieb()
{
    jet::engine().release();
}
