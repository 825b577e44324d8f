// A booking, from Enter on the button of its mask to its row on the main screen.

#include "bench/BareAnsichten.h"
#include "bench/Messbetrieb.h"
#include "bench/Messbildschirm.h"

#include "platform/controls/ComboBox.h"
#include "platform/controls/DataCombo.h"
#include "platform/controls/NumberEdit.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int Paar = 17;
constexpr double Menge = 1.25;

/// The same row by a statement that is durable when it returns, and both views read after it.
class BareBuchung {
public:
    explicit BareBuchung(const QString& datei)
        : m_datei(datei), m_ansichten(datei),
          m_zeile(m_datei,
                  "INSERT INTO LAGERJOURNAL(Datum,Artikel,Artikelart,LagerortKurzKu,Menge,Buchungsmenge,"
                  "Preis,Preisfaktor,Einheit,Buchungsart,BuchungsID) SELECT ?1,Artikel,Artikelart,"
                  "LagerortKurzKu,?2,?2,Preis,Preisfaktor,Einheit,'Zukauf',0 FROM LAGERJOURNAL WHERE ID=?3")
    {
        m_zeile.bind(1, m_tag);
        m_zeile.bind(2, Menge);
        m_zeile.bind(3, qint64{Paar + 1});
    }

    void buche()
    {
        m_zeile.run();
        m_ansichten.repariere();
        m_ansichten.schluessel(Jahr);
        m_ansichten.bestandsliste(Jahr);
    }

private:
    const Ausschnitt Jahr{
        QDate(Messbetrieb::ErstesJahr, 1, 1), QDate(Messbetrieb::ErstesJahr, 12, 31), {}, {}};
    const QByteArray m_tag = QByteArray::number(Messbetrieb::ErstesJahr) + "-06-01";
    BareFile m_datei;
    BareAnsichten m_ansichten;
    BareStatement m_zeile;
};

template <class Feld>
Feld& feld(const QWidget& maske, const char* name)
{
    return *maske.findChild<Feld*>(QString::fromLatin1(name));
}

void tippeBuchung(const QWidget& maske)
{
    feld<DataCombo>(maske, "drpLagerort").setText(Musterjournal::lagerort(Paar));
    feld<ComboBox>(maske, "drpGruppe").enterText(Musterjournal::artikelart(Paar));
    feld<DataCombo>(maske, "drpArtikel").enterText(Musterjournal::artikel(Paar));
    feld<NumberEdit>(maske, "txtMenge").setValue(Menge);
    feld<DataCombo>(maske, "stHandler").setText(u"Lagerhaus 1"_s);
}

void messeBuchung(const Umfang& umfang)
{
    const Messbetrieb betrieb(umfang.zeilen, umfang.paare);
    BareBuchung bar(betrieb.journaldatei(Messbetrieb::ErstesJahr));
    Messbildschirm bildschirm;
    const qsizetype vorher = bildschirm.journal().RecordCount();
    Messung messung(u"A booking, "_s + QString::number(umfang.zeilen) + u" rows, "_s +
                        QString::number(umfang.paare) + u" pairs"_s,
                    1);
    messung.nimm(u"limit: a bare durable insert, both views"_s, 0, [&] { bar.buche(); });
    messung.nimmGemessen(u"from Enter to the painted row"_s, 1.15,
                         [&] { return bildschirm.buche(u"Z"_s, tippeBuchung); });
    messung.miss(umfang.runden);
    fordere(bildschirm.journal().RecordCount() == vorher + 2 * umfang.runden, u"a booking is missing"_s);
}

} // namespace

int main(int argc, char** argv)
{
    return messeBildschirm(argc, argv, {100'000, 5'000, 10}, {1'000'000, 5'000, 5}, messeBuchung);
}
