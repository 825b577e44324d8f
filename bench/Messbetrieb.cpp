#include "bench/Messbetrieb.h"

#include "core/Modulzustand.h"
#include "host/Einrichtung.h"
#include "platform/jet/Engine.h"

Messbetrieb::Messbetrieb(int zeilenJeJahr, int paare, int jahre) : m_ort(m_ordner.path())
{
    modulzustand().Betriebsnummer = m_betriebsnummer;
    modulzustand().Stichdatum = QDate(ErstesJahr, 1, 1);
    for (int jahr = ErstesJahr; jahr < ErstesJahr + jahre; ++jahr) {
        richteEin(m_ort, m_betriebsnummer, jahr);
        Musterjournal(jahr, zeilenJeJahr, paare).schreibe(*jet::engine().OpenDatabase(journaldatei(jahr)));
    }
    jet::engine().release();
}

Messbetrieb::~Messbetrieb()
{
    jet::engine().release();
}
