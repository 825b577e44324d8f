#include "core/SpaeteBindung.h"

#include <zablager/DatabaseError.h>
#include <zablager/FileError.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int InternerFehler = 51; // the runtime's number for what should not happen, such as lack of memory

} // namespace

double SpaeteBindung::Get_Bestand(const QString& Artikel, const QString& Lagerort, const QDate& Stichtag)
{
    double bestand = 0;
    abgesichert([&] { bestand = fruehgebunden().Get_Bestand(Artikel, Lagerort, Stichtag); });
    return bestand;
}

double SpaeteBindung::Get_Bestand(const QString& Artikel, const QString& Lagerort, const QDateTime& Stichtag)
{
    return Get_Bestand(Artikel, Lagerort, Stichtag.date());
}

double SpaeteBindung::LagerbestandRechnen()
{
    double bestand = 0;
    abgesichert([&] { bestand = fruehgebunden().LagerbestandRechnen(); });
    return bestand;
}

void SpaeteBindung::LagerbestandLaden()
{
    abgesichert([&] { fruehgebunden().LagerbestandLaden(); });
}

void SpaeteBindung::Kontrolle_LagerbestandLaden()
{
    abgesichert([&] { fruehgebunden().Kontrolle_LagerbestandLaden(); });
}

void SpaeteBindung::stelleStichdatum(const QDate& tag)
{
    abgesichert([&] { fruehgebunden().setStichdatum(tag); });
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
    try {
        aufruf();
    } catch (const jet::Error& fehler) {
        scheitere(int(fehler.number()), fehler.text());
    } catch (const sys::FileError& fehler) {
        scheitere(int(fehler.number()), fehler.text());
    } catch (const std::exception& fehler) {
        scheitere(InternerFehler, u"Interner Fehler: "_s + QString::fromUtf8(fehler.what()));
    }
}

void SpaeteBindung::scheitere(int nummer, const QString& text)
{
    m_fehler = text;
    m_fehlernummer = nummer;
}
