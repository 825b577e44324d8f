// What the booking mask does while the user types: figures and light when an article was chosen, and the list
// of articles when a kind was.

#include "bench/Messbetrieb.h"
#include "bench/Messbildschirm.h"
#include "bench/Musterjournal.h"

#include "core/Modulzustand.h"
#include "masks/LAZukaufForm.h"
#include "platform/controls/DataGrid.h"

#include <QApplication>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double Bild = 16;        // ms: one frame of the screen
constexpr double Liste = 50;       // ms: what is felt as at once
constexpr int ZweiterArtikel = 10; // the first pair of another article of the same kind
constexpr int ZweiteArt = 20;      // the first pair of another kind

/// The mask over a journal as the main screen has it, without the screen.
class Messmaske {
public:
    explicit Messmaske(const QString& journaldatei)
    {
        modulzustand().Lagerdatei = journaldatei;
        modulzustand().Jahr = QString::number(Messbetrieb::ErstesJahr);
        modulzustand().AktBuchungsart = u"Verkauf"_s;
        modulzustand().Aenderungsmodus = false;
        for (DataControl* daten : {&m_journal, &m_bestand}) {
            daten->setDatabaseName(journaldatei);
            daten->setRecordSource(u"LAGERJOURNAL"_s);
        }
        m_maske = std::make_unique<LAZukaufForm>(
            Hauptansicht{m_journal, m_journalliste, m_bestand, m_bestandsliste});
        feld<CheckBox>("chkVorhanden").setValue(1);
        zeigeBisGemalt(*m_maske);
    }

    template <class Feld>
    Feld& feld(const char* name) const
    {
        return *m_maske->findChild<Feld*>(QString::fromLatin1(name));
    }

private:
    DataControl m_journal, m_bestand;
    DataGrid m_journalliste, m_bestandsliste;
    std::unique_ptr<LAZukaufForm> m_maske;
};

void messeMasken(const Umfang& umfang)
{
    const Messbetrieb betrieb(umfang.zeilen, umfang.paare);
    const Musterjournal muster(Messbetrieb::ErstesJahr, umfang.zeilen, umfang.paare);
    const Messmaske maske(betrieb.journaldatei(Messbetrieb::ErstesJahr));
    auto& gruppe = maske.feld<ComboBox>("drpGruppe");
    auto& artikel = maske.feld<DataCombo>("drpArtikel");

    gruppe.enterText(Musterjournal::artikelart(0));
    maske.feld<DataCombo>("drpLagerort").setText(Musterjournal::lagerort(0));
    artikel.enterText(Musterjournal::artikel(0));
    fordere(std::abs(maske.feld<NumberEdit>("txtBisher").Value() - muster.summen()[0]) < 1e-6,
            u"the mask shows another stock"_s);

    drucke(u"Booking mask, "_s + QString::number(umfang.zeilen) + u" rows, "_s +
           QString::number(umfang.paare) + u" pairs, "_s + QString::number(umfang.runden) + u" rounds"_s);
    missEinzeln(u"  figures and light of an article"_s, Bild, umfang.runden, [&](int i) {
        artikel.enterText(Musterjournal::artikel(i % 2 == 0 ? ZweiterArtikel : 0));
        QCoreApplication::processEvents();
    });
    missEinzeln(u"  list of the articles of a kind that the journal has"_s, Liste, umfang.runden, [&](int i) {
        gruppe.enterText(Musterjournal::artikelart(i % 2 == 0 ? ZweiteArt : 0));
        QCoreApplication::processEvents();
    });
}

} // namespace

int main(int argc, char** argv)
{
    return messeBildschirm(argc, argv, {100'000, 5'000, 40}, {1'000'000, 5'000, 20}, messeMasken);
}
