#include "core/farm/pruefung/Pruefung.h"

#include "core/farm/Jahresdateien.h"
#include "core/farm/pruefung/Bestaende.h"
#include "core/farm/pruefung/Buchungspruefung.h"
#include "core/farm/pruefung/Dateipruefung.h"
#include "core/farm/pruefung/Namen.h"
#include "platform/system/Files.h"
#include "platform/system/Path.h"

#include <zablager/DatabaseError.h>

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

class Pruefung {
public:
    explicit Pruefung(const Pruefziel& ziel) : m_ziel(ziel) {}

    std::vector<Befund> laufe()
    {
        const auto grundstamm = pruefeStamm(Dateiart::Grundstamm, grundstammdatei(m_ziel.daten));
        const auto anlagen = pruefeStamm(Dateiart::Anlagen, anlagendatei(m_ziel.anlagen));
        pruefeStamm(Dateiart::Lager, vorlagedatei(m_ziel.programm));
        for (const int jahr : registerjahre(m_ziel.programm))
            pruefeStamm(Dateiart::ZABStammdaten, stammdatei(m_ziel.programm, QString::number(jahr)), jahr);
        const Stammnamen namen(grundstamm ? grundstamm->kopie() : nullptr,
                               anlagen ? anlagen->kopie() : nullptr);
        for (const QString& betrieb : m_ziel.Betriebe)
            pruefeBetrieb(betrieb, namen);
        std::ranges::stable_sort(m_alle, {}, [](const Befund& befund) {
            return std::tie(befund.art, befund.Betrieb, befund.jahr, befund.ID);
        });
        return std::move(m_alle);
    }

private:
    void nimm(Befunde& befunde)
    {
        for (Befund& befund : befunde.nimm())
            m_alle.push_back(std::move(befund));
    }

    std::unique_ptr<Dateipruefung> pruefeStamm(Dateiart art, const QString& datei,
                                               std::optional<int> jahr = {})
    {
        if (!sys::Exist(datei)) return nullptr;
        Befunde befunde({}, jahr);
        auto pruefung = std::make_unique<Dateipruefung>(art, sys::localPath(datei), befunde);
        nimm(befunde);
        return pruefung;
    }

    void pruefeBetrieb(const QString& betrieb, const Stammnamen& namen)
    {
        const QString ordner = betriebsordner(m_ziel.daten, betrieb);
        std::optional<Jahresschluss> vorjahr;
        for (const int jahr : jahresdateien(ordner)) {
            Befunde befunde(betrieb, jahr);
            const Dateipruefung datei(Dateiart::Lager, sys::localPath(journaldatei(ordner, jahr)), befunde);
            vorjahr =
                datei.kopie() ? pruefeZeilen(jahr, *datei.kopie(), vorjahr, namen, befunde) : std::nullopt;
            nimm(befunde);
        }
    }

    /// \returns what it leaves to the next year; nothing where its rows cannot be read.
    static std::optional<Jahresschluss> pruefeZeilen(int jahr, jet::Database& kopie,
                                                     const std::optional<Jahresschluss>& vorjahr,
                                                     const Stammnamen& namen, Befunde& befunde)
    {
        try {
            return pruefeJahr(jahr, kopie, vorjahr, namen, befunde);
        } catch (const jet::Error& fehler) {
            befunde.nenne(Befundart::DateiBeschaedigt,
                          u"Die Buchungen lassen sich nicht lesen: "_s +
                              QString(fehler.text()).remove(kopie.Name()),
                          u"'zablager zurueckholen' holt eine Sicherung zurück"_s);
            return {};
        }
    }

    static Jahresschluss pruefeJahr(int jahr, jet::Database& kopie,
                                    const std::optional<Jahresschluss>& vorjahr, const Stammnamen& namen,
                                    Befunde& befunde)
    {
        const Journalzeilen journal = liesJournal(kopie);
        pruefeZaehler(journal, kopie, befunde);
        if (vorjahr && uebernimmtVorjahr(kopie)) pruefeAnfangsbestaende(journal, *vorjahr, befunde);
        pruefeBuchungen(journal, jahr, befunde);
        pruefePaare(journal, befunde);
        namen.pruefe(journal, befunde);
        return jahresschluss(journal, jahr);
    }

    const Pruefziel& m_ziel;
    std::vector<Befund> m_alle;
};

} // namespace

std::vector<Befund> pruefe(const Pruefziel& ziel)
{
    return Pruefung(ziel).laufe();
}
