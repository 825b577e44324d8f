#include "core/Lagerverwaltungsdaten.h"

#include "core/Bestand.h"
#include "core/JahresUbertrag.h"
#include "core/Verzeichnisse.h"
#include "platform/system/Pointer.h"

#include <zablager/DatabaseError.h>

#include <QScopeGuard>

using namespace Qt::StringLiterals;

/// While it lives, messages go where the call chose at its beginning.
class Lagerverwaltungsdaten::Meldungsweg final : private sys::Messages {
public:
    explicit Meldungsweg(Lagerverwaltungsdaten& objekt) : m_objekt(objekt), m_umleitung(ziel())
    {
        objekt.beginneAufruf();
    }

private:
    sys::Messages& ziel()
    {
        sys::Messages* const gewaehlt = m_objekt.m_meldungswahl();
        return gewaehlt ? *gewaehlt : *this;
    }
    sys::Answer show(const QString& text, int) override
    {
        m_objekt.hinterlasse(text);
        return sys::Answer::OK; // without a screen users are told, never asked
    }

    Lagerverwaltungsdaten& m_objekt;
    sys::MessageScope m_umleitung;
};

double Lagerverwaltungsdaten::Get_Bestand(const QString& Artikel, const QString& Lagerort, const QDate& Stichtag)
{
    const Meldungsweg weg(*this);
    return BestandErmitteln(Artikel, Lagerort, Stichtag);
}

double Lagerverwaltungsdaten::LagerbestandRechnen()
{
    throw jet::Error(jet::ErrorNumber::NotSupported, u"LagerbestandRechnen ist noch nicht verfügbar."_s);
}

void Lagerverwaltungsdaten::LagerbestandLaden()
{
    throw jet::Error(jet::ErrorNumber::NotSupported, u"LagerbestandLaden ist noch nicht verfügbar."_s);
}

void Lagerverwaltungsdaten::Kontrolle_LagerbestandLaden()
{
    const Meldungsweg weg(*this);
    Modulzustand& zustand = modulzustand();
    zustand.Datenverzeichnis = datenverzeichnis();
    zustand.Lagerpasswort = m_lagerpasswort;
    zustand.Anlagenverzeichnis = m_anlagenverzeichnis;
    zustand.Anlagenpasswort = m_anlagenpasswort;
    zustand.Betriebpasswort = m_betriebpasswort;
    zustand.Betriebsnummer = m_betriebsnummer;
    // The key date is the state's, perhaps another object's: the last one set counts for all.

    sys::MausWarten();
    const auto pfeil = qScopeGuard(&sys::MausNormal);
    JahresUbertrag();
}

void Lagerverwaltungsdaten::setStichdatum(const QDate& tag)
{
    if (!tag.isValid())
        throw jet::Error(jet::ErrorNumber::InvalidArgument, u"Das Stichdatum ist kein gültiges Datum."_s);
    m_stichdatum = tag;
    modulzustand().Stichdatum = tag;
}
