// The carry-forward through five year files: a first run, which writes each opening row, and one that changes
// nothing.

#include "bench/Bare.h"
#include "bench/BarerUebertrag.h"
#include "bench/Messbetrieb.h"
#include "bench/Messung.h"
#include "core/JahresUbertrag.h"
#include "platform/jet/Engine.h"
#include "platform/jet/Rounding.h"

#include <QFile>

#include <unistd.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// Five years; of the large ones two, the one that is carried and the one that takes it.
int jahre(const Umfang& umfang)
{
    return umfang.zeilen < 1'000'000 ? 5 : 2;
}

/// Journal files of the farm, of a copy for the bare way, and as they were before the first run.
class Dateien {
public:
    Dateien(const Messbetrieb& betrieb, int jahre)
    {
        for (int jahr = Messbetrieb::ErstesJahr; jahr < Messbetrieb::ErstesJahr + jahre; ++jahr) {
            m_unsere.append(betrieb.journaldatei(jahr));
            m_bare.append(betrieb.verzeichnis() + u"/bar."_s + QString::number(jahr));
            m_anfang.append(betrieb.verzeichnis() + u"/anfang."_s + QString::number(jahr));
        }
        stelleHer(m_unsere, m_anfang);
        stelleBareHer();
    }

    const QStringList& unsere() const { return m_unsere; }
    const QStringList& bare() const { return m_bare; }
    void stelleUnsereHer() const { stelleHer(m_anfang, m_unsere); }
    void stelleBareHer() const { stelleHer(m_anfang, m_bare); }

private:
    static void stelleHer(const QStringList& von, const QStringList& nach)
    {
        jet::engine().release();
        for (qsizetype i = 0; i < von.size(); ++i) {
            QFile::remove(nach[i]);
            fordere(QFile::copy(von[i], nach[i]), nach[i] + u" cannot be copied"_s);
        }
        sync(); // the copies must not be what a timed commit waits for
    }

    QStringList m_unsere, m_bare, m_anfang;
};

struct Anfangsbestand {
    QByteArray artikel, lagerort, tag, einheit;
    double menge = 0, preis = 0;
    bool operator==(const Anfangsbestand&) const = default;
};

std::vector<Anfangsbestand> anfangsbestaende(const QString& datei)
{
    BareFile bar(datei);
    BareStatement zeilen(bar, "SELECT Artikel,LagerortKurzKu,Datum,Einheit,Menge,Preis FROM LAGERJOURNAL"
                              " WHERE Buchungsart='Anfangsbestand' ORDER BY Artikel,LagerortKurzKu,ID");
    std::vector<Anfangsbestand> alle;
    while (zeilen.step())
        alle.push_back({zeilen.text(0), zeilen.text(1), zeilen.text(2), zeilen.text(3), zeilen.number(4),
                        zeilen.number(5)});
    return alle;
}

/// What each pair must bring into the last year, added up from the made-up rows.
std::vector<double> vortraege(const Umfang& umfang)
{
    std::vector<double> vortraege(static_cast<std::size_t>(umfang.paare));
    for (int jahr = Messbetrieb::ErstesJahr; jahr < Messbetrieb::ErstesJahr + jahre(umfang) - 1; ++jahr) {
        const auto summen = Musterjournal(jahr, umfang.zeilen, umfang.paare).summen();
        for (std::size_t i = 0; i < summen.size(); ++i)
            vortraege[i] = jet::Round(vortraege[i] + summen[i], 4);
    }
    return vortraege;
}

void pruefe(const Dateien& dateien, const Umfang& umfang)
{
    for (int jahr = 0; jahr < jahre(umfang); ++jahr)
        fordere(anfangsbestaende(dateien.unsere()[jahr]) == anfangsbestaende(dateien.bare()[jahr]),
                u"the opening rows differ in "_s + dateien.unsere()[jahr]);
    BareFile bar(dateien.unsere().last());
    BareStatement vortrag(bar, "SELECT sum(Menge) FROM LAGERJOURNAL WHERE Buchungsart='Anfangsbestand'"
                               " %C AND Artikel=? %C AND LagerortKurzKu=? %C");
    const auto erwartet = vortraege(umfang);
    for (int paar = 0; paar < umfang.paare; ++paar) {
        const QByteArray artikel = Musterjournal::artikel(paar).toUtf8();
        const QByteArray lagerort = Musterjournal::lagerort(paar).toUtf8();
        vortrag.bind(1, artikel);
        vortrag.bind(2, lagerort);
        vortrag.step();
        fordere(std::abs(vortrag.number(0) - erwartet[static_cast<std::size_t>(paar)]) < 1e-6,
                u"an opening row is wrong: "_s + Musterjournal::artikel(paar));
        vortrag.reset();
    }
}

void messeUebertrag(const Umfang& umfang)
{
    const Messbetrieb betrieb(umfang.zeilen, umfang.paare, jahre(umfang));
    const Dateien dateien(betrieb, jahre(umfang));
    const auto bar = [&] { barerUebertrag(dateien.bare(), Messbetrieb::ErstesJahr); };
    const auto unser = [] { JahresUbertrag(); };
    bar();
    unser();
    pruefe(dateien, umfang);

    const QString groesse = QString::number(umfang.paare) + u" pairs, "_s + QString::number(jahre(umfang)) +
                            u" files of "_s + QString::number(umfang.zeilen) + u" rows"_s;
    Messung ohneAenderung(u"Carry-forward that changes nothing, "_s + groesse, 1);
    ohneAenderung.nimm(u"limit: its statements bare"_s, 0, bar);
    ohneAenderung.nimm(u"JahresUbertrag"_s, 1.3, unser);
    ohneAenderung.miss(2 * umfang.runden);
    pruefe(dateien, umfang);

    Messung ersterLauf(u"Carry-forward, first run, "_s + groesse, 1);
    ersterLauf.nimm(u"limit: its statements bare"_s, 0, bar, [&] { dateien.stelleBareHer(); });
    ersterLauf.nimm(u"JahresUbertrag"_s, 1.2, unser, [&] { dateien.stelleUnsereHer(); });
    ersterLauf.miss(umfang.runden);
}

} // namespace

int main(int argc, char** argv)
{
    return messe(argc, argv, {40'000, 2'000, 5}, {200'000, 10'000, 5}, messeUebertrag);
}
