// Two years on the farm, as users book, change and delete. After each step every stock that the program tells is the one
// that the test has reckoned for itself.

#include "tests/overview/Buchung.h"

#include "core/Bestand.h"
#include "core/Modulzustand.h"
#include "platform/controls/ComboBox.h"

#include <QGuiApplication>
#include <QLocale>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

using namespace Qt::StringLiterals;

namespace {

// Day, what is done, place, article, quantity as typed; then what receives a transfer, or where a change moves the row.
// A letter books anew. One filter is set at a time.
// clang-format off
const char* const Schritte[] = {
    "Jahr | 2024",                                       "02.01. | a | H1 | Roggen | 500",
    "02.01. | a | H2 | Diesel | 1200",                   "15.01. | z | H1 | Weizen | 100,5",
    "16.01. | e | H2 | Diesel | 80",                     "20.01. | u | H1 | Weizen | 40,25 | H2 | Weizen",
    "03.02. | s | H1 | Roggen | 0,1",                    "04.02. | s | H1 | Roggen | -0,3",
    "05.02. | s | H1 | Roggen | 0,2", // dust
    "11.02. | v | H1 | Weizen | 190",                    "12.02. | z | H1 | Weizen | 30", // below nothing
    "20.01. | ändern | H2 | Weizen | 20",                "20.01. | ändern | H1 | Weizen | 22,5", // from either side
    "11.02. | ändern | H1 | Weizen | 60",                "16.01. | ändern | H2 | Diesel | 85,5",
    "20.02. | g | H1 | Roggen | 12,5",                   "01.03. | p | H2 | Weizen | 25",
    "Sortieren | 1",                                     "05.03. | u | H2 | Weizen | 10 | H1 | Roggen",
    "10.03. | z | H1 | Diesel | 1500",
    "Filter | drpLagerOrte | H1", // hides a receipt, an issue, a booking, and what a change moves away
    "12.03. | e | H1 | Diesel | 120,75",                 "13.03. | u | H1 | Diesel | 300 | H2 | Diesel",
    "13.03. | ändern | H1 | Diesel | 350",               "05.03. | ändern | H1 | Roggen | 11",
    "14.03. | z | H2 | Weizen | 5",                      "15.03. | v | H1 | Roggen | 45",
    "12.03. | löschen | H1 | Diesel",                    "16.03. | u | H2 | Diesel | 50 | H1 | Diesel",
    "17.03. | g | H1 | Diesel | 3",                      "17.03. | ändern | H1 | Diesel | 4 | H2",
    "16.03. | Entf | H1 | Diesel",                       "Filter | drpLagerOrte | Alle Lagerorte",
    "01.04. | z | H2 | Roggen | 250",                    "02.04. | u | H2 | Roggen | 100 | H1 | Roggen",
    "03.04. | v | H2 | Roggen | 200",                    "02.04. | ändern | H1 | Roggen | -30", // the other way round
    "Filter | drpArtikel | Weizen",
    "10.04. | p | H1 | Weizen | 80",                     "11.04. | e | H1 | Weizen | 12,34",
    "12.04. | e | H1 | Roggen | 1",                      "13.04. | u | H1 | Weizen | 33,3 | H2 | Weizen",
    "11.04. | Entf | H1 | Weizen",                       "13.04. | löschen | H2 | Weizen",
    "Filter | drpArtikel | Alle Artikel",                "Sortieren | 0",
    "30.06. | l | H1 | Weizen | 157,75",                 "30.06. | l | H2 | Weizen | 40", // the stocktake
    "30.06. | l | H1 | Roggen | 430",                    "30.06. | l | H2 | Roggen | 75,5",
    "30.06. | l | H1 | Diesel | 1140",                   "30.06. | l | H2 | Diesel | 1420,25",
    "30.06. | ändern | H1 | Diesel | 1145,5",            "12.02. | ändern | H1 | Weizen | 31", // before the count
    "01.07. | v | H1 | Weizen | 158,75",                 "02.10. | v | H2 | Roggen | 75,5", // all of it
    "15.07. | p | H1 | Weizen | 410",                    "16.07. | u | H1 | Weizen | 150 | H2 | Weizen",
    "01.10. | s | H2 | Weizen | 1,5",                    "Jahr | 2025",
    "10.01. | v | H1 | Weizen | 100",                    "11.01. | e | H1 | Diesel | 95",
    "12.01. | z | H2 | Roggen | 300",                    "13.01. | u | H2 | Roggen | 120 | H1 | Roggen",
    "14.01. | g | H2 | Weizen | 2,25",                   "14.01. | s | H1 | Diesel | 0,75",
    "14.01. | p | H2 | Diesel | 60",                     "15.01. | v | H2 | Weizen | 60",
    "01.01. | ändern | H1 | Roggen | 400", // until the year changes again
    "Jahr | 2024",                                       "03.10. | z | H2 | Roggen | 10",
    "15.07. | ändern | H1 | Weizen | 420",               "01.10. | löschen | H2 | Weizen",
    "Jahr | 2025",                                       "13.01. | Entf | H1 | Roggen",
    "01.02. | l | H1 | Roggen | 540",                    "02.02. | l | H2 | Roggen | 188",
    "03.02. | p | H1 | Weizen | 7",
};
// clang-format on

struct Bewegung {
    QString art;
    int richtung = 0; ///< 0: a count.
    double menge = 0;
    QString partner{}; ///< Where the other row of a transfer stands.
};
const std::map<QString, Bewegung> Arten{
    {u"z"_s, {u"Zukauf"_s, 1}},          {u"p"_s, {u"Produktion"_s, 1}},  {u"a"_s, {u"Anfangsbestand"_s, 1}},
    {u"s"_s, {u"Schwund"_s, -1}},        {u"g"_s, {u"Entsorgung"_s, -1}}, {u"v"_s, {u"Verkauf"_s, -1}},
    {u"e"_s, {u"Eigenverbrauch"_s, -1}}, {u"l"_s, {u"Korrektur"_s, 0}},   {u"u"_s, {u"Umbuchung"_s, -1}}};
const std::map<QString, QString> Gruppen{
    {u"Weizen"_s, u"Pflanzliche"_s}, {u"Roggen"_s, u"Saatgut"_s}, {u"Diesel"_s, u"Treib"_s}, {{}, {}}};
const QStringList Plaetze{u"H1 | Weizen"_s, u"H1 | Roggen"_s, u"H1 | Diesel"_s,
                          u"H2 | Weizen"_s, u"H2 | Roggen"_s, u"H2 | Diesel"_s};
const char* const Felder[] = {"Buchdatum", "drpLagerort",   "drpGruppe",  "drpArtikel",
                              "txtMenge",  "drpLagerorte2", "drpGruppe2", "DrpArtikel2"};
const QStringList Fragen{NegativFrage, ZugangNegativ, PartnerFrage, Loeschfrage};
const QLocale Deutsch(QLocale::German);
constexpr double Staub = 1e-9; // what sums of decimals leave

class Hoftag : public Buchung {
protected:
    Hoftag()
    {
        hof.fuehreAus(2023, u"UPDATE LAGERJOURNAL SET Artikelart = 'Pflanzliche Erzeugnisse', Einheit = 'dt'"_s);
        hof.fuehreAus(2024, u"DELETE FROM LAGERJOURNAL"_s);
        hof.richteEin(2025);
        hof.meldungen().beantworteAlle(sys::Answer::Yes);
        modulzustand().Stichdatum = QDate(2023, 6, 1);
    }

    /// What the rows of a day's year up to it make of a place's stock; days as "2024-06-30".
    double stand(const QString& platz, const QString& bis) const
    {
        double summe = 0;
        for (const auto& [stelle, bewegung] : bewegungen)
            if (stelle.endsWith(platz) && stelle.left(4) == bis.left(4) && stelle.left(10) <= bis)
                summe += bewegung.menge;
        return summe;
    }
    double jahresstand(const QString& platz) const { return stand(platz, jahr + u"-12-31"_s); }

    void rechne(const QString& stelle, double getippt)
    {
        auto& [art, richtung, menge, partner] = bewegungen[stelle];
        menge = 0;
        menge = richtung == 0 ? getippt - jahresstand(stelle.mid(13)) : richtung * getippt;
        if (std::abs(menge) < Staub) menge = 0;
        if (!partner.isEmpty()) bewegungen[partner].menge = -menge;
    }

    bool istSichtbar(const QString& stelle) const
    {
        return stelle.startsWith(jahr) && (filter.startsWith(u"Alle "_s) || stelle.split(u" | "_s).contains(filter));
    }

    QString angezeigt(const QString& stelle) const
    {
        const auto& [art, richtung, menge, partner] = bewegungen.at(stelle);
        const QString zahl = menge == 0 ? QString() : Deutsch.toString(std::abs(menge), 'f', 2);
        return stelle.mid(8, 2) + u'.' + stelle.mid(5, 2) + u'.' + stelle.mid(10) + u" | "_s +
               (menge > 0 ? u'+' : u'-') + zahl + u" | "_s + art;
    }

    QString stelle(const QString& tag, const QString& ort, const QString& artikel) const
    {
        return QStringList{jahr + u'-' + tag.mid(3, 2) + u'-' + tag.left(2), ort, artikel}.join(u" | "_s);
    }

    /// Fills the mask that `oeffneMaske` opens; what was written last becomes current, unless the filter hides it.
    void erfasse(const QString& letzte, const QStringList& texte, const std::function<void()>& oeffneMaske)
    {
        const QString vorher = aktuelleBewegung();
        imNaechstenFenster([&](QWidget& maske) {
            for (qsizetype i = 0; i < texte.size(); ++i)
                if (!texte[i].isEmpty()) setze(maske, Felder[i], texte[i]);
            widget(maske, "Command2(1)").setFocus();
            QTest::keyClick(&widget(maske, "Command2(1)"), Qt::Key_Return);
        });
        oeffneMaske();
        if (!istSichtbar(letzte) && !journal().contains(vorher)) return; // it was this one and has left the view
        EXPECT_EQ(aktuelleBewegung(), istSichtbar(letzte) ? angezeigt(letzte) : vorher);
    }

    void buche(const QString& neu, const QStringList& w)
    {
        bewegungen[neu] = Arten.at(w[1]);
        QString letzte = neu;
        if (w[1] == u"u") {
            const QString dort = bewegungen[neu].partner = stelle(w[0], w[5], w[6]);
            bewegungen[dort] = {u"Umbuchung"_s, 1, 0, neu};
            if (istSichtbar(dort)) letzte = dort;
        }
        rechne(neu, Deutsch.toDouble(w[4]));
        erfasse(letzte, {w[0], w[2], Gruppen.at(w[3]), w[3], w[4], w[5], Gruppen.at(w[6]), w[6]},
                [&] { kurzel(w[1][0].toLatin1()); });
    }

    void aendere(QString dieses, const QStringList& w)
    {
        if (!w[5].isEmpty()) {
            const Bewegung umgezogen = bewegungen.extract(dieses).mapped();
            bewegungen[dieses = stelle(w[0], w[5], w[3])] = umgezogen;
        }
        rechne(dieses, Deutsch.toDouble(w[4]));
        erfasse(dieses, {{}, w[5], {}, {}, w[4]}, [&] { drucke("Command7(1)", Qt::Key_Return); });
    }

    void loesche(const QString& dieses, const char* womit, Qt::Key taste)
    {
        bewegungen.erase(bewegungen.at(dieses).partner);
        bewegungen.erase(dieses);
        drucke(womit, taste);
        EXPECT_NE(aktuelleBewegung(), u"keine"_s);
    }

    void wechsleZu(const QString& gewaehlt)
    {
        jahr = gewaehlt;
        for (int alt = jahr.toInt() - 1; alt < 2025; ++alt) {
            for (const QString& platz : Plaetze) {
                const double rest = stand(platz, QString::number(alt) + u"-12-31"_s);
                const QString anfang = QString::number(alt + 1) + u"-01-01 | "_s + platz;
                if (!bewegungen.contains(anfang) && std::abs(rest) < Staub) continue;
                bewegungen[anfang] = {u"Anfangsbestand"_s, 1, rest};
            }
        }
        tippe("drpJahr", jahr);
        EXPECT_EQ(aktuelleBewegung(), journal().last());
    }

    void fuehreAus(const QStringList& w)
    {
        if (w[0] == u"Jahr") return wechsleZu(w[1]);
        if (w[0] == u"Sortieren") return klickeKopf("Journalliste", sortiert = w[1].toInt());
        if (w[0] == u"Filter") return tippe((filterfeld = w[1].toLatin1()).constData(), filter = w[2]);
        const QString diese = stelle(w[0], w[2], w[3]);
        if (Arten.contains(w[1])) return buche(diese, w);
        aktiviere(); // on a button Enter asks for the focus
        waehleBewegung(int(journal().indexOf(angezeigt(diese))));
        if (w[1] == u"ändern") return aendere(diese, w);
        w[1] == u"Entf" ? loesche(diese, "Journalliste", Qt::Key_Delete) : loesche(diese, "Command4", Qt::Key_Return);
    }

    void pruefeDateien() const
    {
        for (const QString& jedes : {u"2023"_s, u"2024"_s, u"2025"_s}) {
            const auto istDavon = [&jedes](const auto& eintrag) { return eintrag.first.startsWith(jedes); };
            EXPECT_EQ(hof.journal(jedes.toInt()).size(), std::ranges::count_if(bewegungen, istDavon));
            for (const QString& platz : Plaetze)
                for (const QString& tag : {jedes + u"-06-30"_s, jedes + u"-12-31"_s})
                    EXPECT_NEAR(BestandErmitteln(platz.mid(5), platz.left(2), QDate::fromString(tag, Qt::ISODate)),
                                stand(platz, tag), Staub);
        }
    }

    void pruefeBildschirm() const
    {
        const QStringList gezeigt = journal();
        std::multiset<QString> zeilen;
        std::map<QString, double> stand100, gezeigt100; // in hundredths
        for (const auto& [stelle, bewegung] : bewegungen) {
            if (!istSichtbar(stelle)) continue;
            zeilen.insert(angezeigt(stelle));
            stand100[stelle.mid(13)] = std::round(100 * jahresstand(stelle.mid(13)));
        }
        for (const QString& zeile : bestaende()) {
            const QStringList zellen = zeile.split(u" | "_s);
            const double bestand = std::round(100 * Deutsch.toDouble(zellen[4]));
            EXPECT_TRUE(gezeigt100.emplace(zellen[1] + u" | "_s + zellen[0], bestand).second) << zeile.toStdString();
        }
        EXPECT_EQ(gezeigt100, stand100);
        EXPECT_TRUE(std::ranges::is_sorted(gezeigt, {}, [this](const QString& zeile) { // by day or article
            return sortiert == 0 ? zeile.mid(3, 2) + zeile.left(2) : zeile.section(u" | "_s, 2, 2);
        }));
        EXPECT_EQ(std::multiset<QString>(gezeigt.begin(), gezeigt.end()), zeilen);
        EXPECT_EQ(feld<ComboBox>(filterfeld).Text(), filter);
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    }

    std::map<QString, Bewegung> bewegungen{{u"2023-06-30 | H1 | Weizen"_s, {u"Ernte"_s, 1, 120.5}}};
    QString jahr = u"2023"_s;
    QByteArray filterfeld = "drpLagerOrte";
    QString filter = u"Alle Lagerorte"_s;
    int sortiert = 0; ///< Column of the journal.
};

} // namespace

TEST_F(Hoftag, JederBestandIstDieSummeDesGebuchten)
{
    oeffne();
    for (const char* schritt : Schritte) {
        SCOPED_TRACE(schritt);
        QStringList worte = QString::fromUtf8(schritt).split(u" | "_s);
        worte.resize(7);
        fuehreAus(worte);
        for (const QString& meldung : hof.meldungen().abgeholt())
            EXPECT_TRUE(Fragen.contains(meldung)) << meldung.toStdString();
        pruefeDateien();
        pruefeBildschirm();
        if (HasFailure()) return; // all that follows would fail
    }
}
