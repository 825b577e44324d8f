#include "core/Lagerverwaltung.h"

#include "core/Bestand.h"
#include "core/Datumstext.h"
#include "core/JahresUbertrag.h"
#include "core/Journaldatei.h"
#include "core/SQLTexte.h"
#include "core/Verzeichnisse.h"
#include "core/farm/Dateien.h"
#include "platform/system/Pointer.h"

#include <zablager/DatabaseError.h>

#include <QScopeGuard>

using namespace Qt::StringLiterals;

/// While it lives, messages go where the call chose at its beginning.
class Lagerverwaltung::Meldungsweg final : private sys::Messages {
public:
    explicit Meldungsweg(const Lagerverwaltung& objekt) : m_objekt(objekt), m_umleitung(ziel())
    {
        objekt.m_bericht.beginnt();
    }

private:
    sys::Messages& ziel()
    {
        sys::Messages* const gewaehlt = m_objekt.m_anschluesse.meldungen();
        return gewaehlt ? *gewaehlt : *this;
    }
    sys::Answer show(const QString& text, int flags) override
    {
        m_objekt.m_bericht.meldet(text);
        return sys::defaultAnswer(flags); // without a screen users are told, never asked
    }

    const Lagerverwaltung& m_objekt;
    sys::MessageScope m_umleitung;
};

double Lagerverwaltung::Get_Bestand(const QString& Artikel, const QString& Lagerort, const QDate& Stichtag)
{
    const Meldungsweg weg(*this);
    return BestandErmitteln(Artikel, Lagerort, Stichtag);
}

double Lagerverwaltung::LagerbestandRechnen()
{
    const Meldungsweg weg(*this);
    const auto journal = oeffne(Dateiart::Lager, m_datenverzeichnis, modulzustand().Lagerpasswort);
    // The doubled AND is kept: hosts know this call as one that fails, and its day is not counted ("<"), so a
    // mended statement would answer with another stock than Get_Bestand.
    const auto summe = journal->OpenRecordset(
        u"SELECT Sum(Lagerjournal.Menge) AS [Summe von Menge] From Lagerjournal"
        u" WHERE (((Lagerjournal.LagerortKurzKu)='"_s +
            m_lagername + u"') AND ((Lagerjournal.Artikel)='"_s + m_artikelname +
            u"') AND AND ((Lagerjournal.Datum)<"_s + SQLDatum(datumText(m_stichdatum)) + u")))"_s,
        jet::Kind::Dynaset);
    return (*summe)[u"Summe von Menge"].toDouble();
}

void Lagerverwaltung::LagerbestandLaden()
{
    const Meldungsweg weg(*this);
    Modulzustand& zustand = modulzustand();
    if (zustand.BildschirmOffen) // its values must not become those of another farm
        throw jet::Error(jet::ErrorNumber::InvalidArgument, u"Die Lagerverwaltung ist schon geöffnet."_s);
    // Its year would be 1899. Unlike the carry-forward, which then takes all years, this call would make a
    // file for it.
    if (m_stichdatum == nulldatum())
        throw jet::Error(jet::ErrorNumber::InvalidArgument, u"Das Stichdatum ist nicht gesetzt."_s);
    zustand.Artikelname = m_artikelname;
    zustand.Lagername = m_lagername;
    zustand.Stichdatum = m_stichdatum;
    zustand.Lagerdatei = m_datenverzeichnis;
    zustand.Stammverzeichnis = m_stammverzeichnis;
    zustand.Waehrung = m_waehrung;
    zustand.Lagerpasswort = m_lagerpasswort;
    zustand.Anlagenverzeichnis = m_anlagenverzeichnis;
    zustand.Anlagenpasswort = m_anlagenpasswort;
    zustand.Betriebsname = m_betriebsname;
    zustand.Betriebsnummer = m_betriebsnummer;
    zustand.Betriebsadresse = m_betriebsadresse;
    // Not the farm password: no screen opens the farm's own database, so it stays what a carry-forward handed
    // on.

    zustand.Ruecknahmen.clear();
    zustand.Jahr = QString::number(zustand.Stichdatum.year());
    stelleJournalBereit(m_datenverzeichnis); // a missing template ends the call, what is copied by now stays
    zustand.Herkunft = m_herkunft;
    zustand.Datenverzeichnis = datenverzeichnis();
    zustand.Hilfedatei = ProgrammVerzeichnis() + u"\\ZAB Hilfe\\Lagerverwaltung.chm"_s;

    zustand.BildschirmOffen = true;
    const auto geschlossen = qScopeGuard([&zustand] { zustand.BildschirmOffen = false; });
    m_anschluesse.hauptbildschirm();
}

void Lagerverwaltung::Kontrolle_LagerbestandLaden()
{
    const Meldungsweg weg(*this);
    Modulzustand& zustand = modulzustand();
    if (zustand.BildschirmOffen && zustand.Betriebsnummer != m_betriebsnummer) // it would book into this farm
        throw jet::Error(jet::ErrorNumber::InvalidArgument,
                         u"Die Lagerverwaltung ist für einen anderen Betrieb geöffnet."_s);
    zustand.Datenverzeichnis = datenverzeichnis();
    zustand.Lagerpasswort = m_lagerpasswort;
    zustand.Anlagenverzeichnis = m_anlagenverzeichnis;
    zustand.Anlagenpasswort = m_anlagenpasswort;
    zustand.Betriebpasswort = m_betriebpasswort;
    zustand.Betriebsnummer = m_betriebsnummer;
    // The key date is the state's, perhaps another object's: the last one set counts for all.

    const sys::Hourglass warten;
    JahresUbertrag();
}

void Lagerverwaltung::setStichdatum(const QDate& tag)
{
    if (!tag.isValid())
        throw jet::Error(jet::ErrorNumber::InvalidArgument, u"Das Stichdatum ist kein gültiges Datum."_s);
    m_stichdatum = tag;
    modulzustand().Stichdatum = tag;
}
