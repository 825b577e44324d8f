// Stock questions: one, as the bare sum, through the engine from the statement's text, and as a host calls
// it; and ten thousand different ones in a row, from C++ and from Python.

#include "bench/Bare.h"
#include "bench/Messbetrieb.h"
#include "bench/Messung.h"
#include "core/Datumstext.h"
#include "core/Lagerverwaltungsdaten.h"
#include "core/SQLTexte.h"
#include "platform/jet/Engine.h"

#include <QFile>
#include <QProcess>

#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int Fragen = 10'000;
constexpr int FragenJeRunde = 50; // half a millisecond: mostly done before another program gets the processor

/// A question in the form that each of the ways takes.
struct Frage {
    QString artikel, lagerort;
    QDate tag;
    QByteArray artikelBytes, lagerortBytes, tagBytes;
    QString anweisung;
};

QString anweisung(const QString& artikel, const QString& lagerort, QDate tag)
{
    return u"SELECT Lagerjournal.Artikel, Lagerjournal.LagerortKurzKu, Sum(Lagerjournal.Menge) AS SumMenge"
           u" From Lagerjournal WHERE (((Lagerjournal.Datum)<="_s +
           SQLDatum(datumText(tag)) + u") And Artikel = '"_s + artikel + u"' And LagerortKurzKu ='"_s +
           lagerort + u"') GROUP BY Lagerjournal.Artikel, Lagerjournal.LagerortKurzKu"_s;
}

std::vector<Frage> ausformuliert(const std::vector<Bestandsfrage>& fragen)
{
    std::vector<Frage> alle;
    for (const Bestandsfrage& frage : fragen) {
        const QString artikel = Musterjournal::artikel(frage.paar);
        const QString lagerort = Musterjournal::lagerort(frage.paar);
        alle.push_back({artikel, lagerort, frage.tag, artikel.toUtf8(), lagerort.toUtf8(),
                        frage.tag.toString(Qt::ISODate).toLatin1(), anweisung(artikel, lagerort, frage.tag)});
    }
    return alle;
}

double bareSumme(BareStatement& summe, const Frage& frage)
{
    summe.bind(1, frage.tagBytes);
    summe.bind(2, frage.artikelBytes);
    summe.bind(3, frage.lagerortBytes);
    summe.step();
    const double bestand = summe.number(0);
    summe.reset();
    return bestand;
}

double summeDurchDieMaschine(jet::Database& journal, const Frage& frage)
{
    const auto summe = journal.OpenRecordset(frage.anweisung, jet::Kind::Snapshot);
    if (summe->Eof()) return 0;
    return (*summe)[u"SumMenge"].toDouble();
}

QString groesse(const Umfang& umfang)
{
    return u", "_s + QString::number(umfang.zeilen) + u" rows, "_s + QString::number(umfang.paare) +
           u" pairs"_s;
}

/// A Python host that asks the questions of a file whenever it is told to, and says how long that took.
class Pythonwirt {
public:
    Pythonwirt(const Messbetrieb& betrieb, const std::vector<Frage>& fragen,
               const std::vector<double>& antworten)
    {
        QFile datei(betrieb.verzeichnis() + u"/fragen.tsv"_s);
        fordere(datei.open(QIODevice::WriteOnly), datei.fileName() + u" cannot be written"_s);
        for (std::size_t i = 0; i < fragen.size(); ++i)
            datei.write(fragen[i].artikelBytes + '\t' + fragen[i].lagerortBytes + '\t' + fragen[i].tagBytes +
                        '\t' + QByteArray::number(antworten[i], 'g', 17) + '\n');
        datei.close();
        auto umgebung = QProcessEnvironment::systemEnvironment();
        umgebung.insert(u"XDG_CONFIG_HOME"_s, betrieb.verzeichnis() + u"/einstellungen"_s);
        m_python.setProcessEnvironment(umgebung);
        m_python.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_python.start(u"/usr/bin/python3"_s,
                       {QStringLiteral(PYTHON_HOST), QStringLiteral(COMPONENT), datei.fileName()});
    }

    ~Pythonwirt()
    {
        m_python.closeWriteChannel();
        m_python.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(Pythonwirt)

    double sekunden()
    {
        m_python.write("go\n");
        while (!m_python.canReadLine())
            fordere(m_python.waitForReadyRead(60'000), u"the Python host has gone"_s);
        return m_python.readLine().toDouble();
    }

    /// Without the bindings there is no such host.
    static bool gibtEs()
    {
        return QProcess::execute(u"/usr/bin/python3"_s, {u"-c"_s, u"import PyQt6.QtCore"_s}) == 0;
    }

private:
    QProcess m_python;
};

void messeVieleFragen(const Messbetrieb& betrieb, const Umfang& umfang, const std::vector<Frage>& fragen,
                      const std::vector<double>& antworten, Lagerverwaltungsdaten& lager)
{
    constexpr int Runden = 5;
    Messung messung(QString::number(Fragen) + u" different stock questions in a row"_s + groesse(umfang),
                    Fragen);
    messung.nimm(u"limit: Get_Bestand from C++"_s, 0, [&] {
        for (const Frage& frage : fragen)
            lager.Get_Bestand(frage.artikel, frage.lagerort, frage.tag);
    });
    std::optional<Pythonwirt> python;
    if (Pythonwirt::gibtEs()) {
        python.emplace(betrieb, fragen, antworten);
        messung.nimmGemessen(u"Get_Bestand from Python"_s, 2, [&] { return python->sekunden(); });
    }
    messung.miss(Runden);
}

void messeBestand(const Umfang& umfang)
{
    const Messbetrieb betrieb(umfang.zeilen, umfang.paare);
    const Musterjournal muster(Messbetrieb::ErstesJahr, umfang.zeilen, umfang.paare);
    const auto bestandsfragen = muster.fragen(Fragen);
    const auto fragen = ausformuliert(bestandsfragen);
    const QString datei = betrieb.journaldatei(Messbetrieb::ErstesJahr);

    BareFile bar(datei);
    BareStatement summe(bar, "SELECT sum(Menge) FROM LAGERJOURNAL"
                             " WHERE Datum<=? AND Artikel=? %C AND LagerortKurzKu=? %C");
    const auto journal = jet::engine().OpenDatabase(datei, u";pwd=quenlor"_s);
    Lagerverwaltungsdaten lager({[] { return nullptr; }, {}});
    const std::function<double(const Frage&)> wege[] = {
        [&](const Frage& frage) { return bareSumme(summe, frage); },
        [&](const Frage& frage) { return summeDurchDieMaschine(*journal, frage); },
        [&](const Frage& frage) { return lager.Get_Bestand(frage.artikel, frage.lagerort, frage.tag); },
    };

    const auto antworten = muster.antworten(bestandsfragen);
    for (std::size_t i = 0; i < fragen.size(); ++i)
        for (const auto& weg : wege)
            fordere(std::abs(weg(fragen[i]) - antworten[i]) < 1e-6,
                    u"a stock is wrong: "_s + fragen[i].artikel);

    Messung messung(u"One stock question"_s + groesse(umfang), FragenJeRunde);
    const auto alle = [&fragen](const auto& weg) {
        return [&fragen, &weg, naechste = std::size_t{0}]() mutable {
            for (int i = 0; i < FragenJeRunde; ++i)
                weg(fragen[naechste++ % fragen.size()]);
        };
    };
    messung.nimm(u"limit: the bare sum"_s, 0, alle(wege[0]));
    messung.nimm(u"engine, from statement text to sum"_s, 1.3, alle(wege[1]));
    messung.nimm(u"Get_Bestand, opening included"_s, umfang.zeilen > 100'000 ? 1.3 : 1.6, alle(wege[2]));
    messung.miss(umfang.runden);
    messeVieleFragen(betrieb, umfang, fragen, antworten, lager);
}

} // namespace

int main(int argc, char** argv)
{
    return messe(argc, argv, {100'000, 5'000, 1'000}, {1'000'000, 5'000, 1'000}, messeBestand);
}
