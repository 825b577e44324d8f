#include "core/SpaeteBindung.h"

#include "platform/system/CaughtError.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int UnbekannteEigenschaft = 438; // the runtime's number

} // namespace

double SpaeteBindung::Get_Bestand(const QString& Artikel, const QString& Lagerort, const QDate& Stichtag)
{
    double bestand = 0;
    abgesichert([&] { bestand = m_objekt.Get_Bestand(Artikel, Lagerort, Stichtag); });
    return bestand;
}

double SpaeteBindung::Get_Bestand(const QString& Artikel, const QString& Lagerort, const QDateTime& Stichtag)
{
    return Get_Bestand(Artikel, Lagerort, Stichtag.date());
}

double SpaeteBindung::LagerbestandRechnen()
{
    double bestand = 0;
    abgesichert([&] { bestand = m_objekt.LagerbestandRechnen(); });
    return bestand;
}

void SpaeteBindung::LagerbestandLaden()
{
    abgesichert([&] { m_objekt.LagerbestandLaden(); });
}

void SpaeteBindung::Kontrolle_LagerbestandLaden()
{
    abgesichert([&] { m_objekt.Kontrolle_LagerbestandLaden(); });
}

void SpaeteBindung::stelleStichdatum(const QDate& tag)
{
    abgesichert([&] { m_objekt.setStichdatum(tag); });
}

void SpaeteBindung::beginneAufruf()
{
    m_fehler.clear();
    m_fehlernummer = 0;
}

void SpaeteBindung::hinterlasse(const QString& meldung)
{
    if (!m_fehler.isEmpty()) m_fehler += u'\n';
    m_fehler += meldung;
}

void SpaeteBindung::abgesichert(const std::function<void()>& aufruf)
{
    beginneAufruf();
    // Qt takes a misspelt property for a new one of this object, and the host would get the figures of
    // another place.
    const QList<QByteArray> unbekannt = dynamicPropertyNames();
    if (!unbekannt.isEmpty()) {
        m_fehler = u"Objekt unterstützt diese Eigenschaft oder Methode nicht: '"_s +
                   QString::fromUtf8(unbekannt.first()) + u"'"_s;
        m_fehlernummer = UnbekannteEigenschaft;
        return;
    }
    try {
        aufruf();
        if (std::exchange(m_fehlernummer, 0) != 0)
            m_fehler.clear(); // of a call that came while this one was on its way
    } catch (...) {
        const sys::CaughtError fehler = sys::caughtError();
        m_fehler = fehler.text;
        m_fehlernummer = fehler.number;
    }
}
