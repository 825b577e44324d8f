#include "bench/Messbetrieb.h"

#include "core/Modulzustand.h"
#include "host/Einrichtung.h"
#include "platform/jet/Engine.h"

namespace {

const QString Betriebsnummer = QStringLiteral("4711");

} // namespace

void Messbetrieb::melde(const Installation& ort)
{
    ort.verwende();
    modulzustand().Betriebsnummer = Betriebsnummer;
    modulzustand().Lagerpasswort = QStringLiteral(";pwd=quenlor");
    modulzustand().Anlagenverzeichnis = ort.anlagen();
    modulzustand().Stichdatum = QDate(ErstesJahr, 1, 1);
}

Messbetrieb::Messbetrieb(int zeilenJeJahr, int paare, int jahre) : m_ort(m_ordner.path())
{
    for (int jahr = ErstesJahr; jahr < ErstesJahr + jahre; ++jahr) {
        richteEin(m_ort, Betriebsnummer, jahr);
        Musterjournal(jahr, zeilenJeJahr, paare).schreibe(*jet::engine().OpenDatabase(journaldatei(jahr)));
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
    return m_ort.programm() + QStringLiteral("/ZABStammdaten_") + QString::number(jahr) +
           QStringLiteral(".mdb");
}

Messbetrieb::~Messbetrieb()
{
    jet::engine().release();
}
