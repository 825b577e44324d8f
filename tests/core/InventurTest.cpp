#include "core/Journaldatei.h"
#include "core/Modulzustand.h"
#include "core/inventur/Zaehlung.h"
#include "platform/system/Files.h"
#include "tests/platform/jet/Plattenstoerung.h"
#include "tests/support/Testbetrieb.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

/// Journal and file of counts cannot commit together: whatever ends the booking, going on books the rest.
TEST(Inventur, BuchtWasGezaehltWurdeEinmalWasImmerDazwischenKommt)
{
    const Testbetrieb betrieb;
    betrieb.bucht(2024, "05.05. | H1 | Weizen | 12,5 | Zukauf\n06.05. | H2 | Hafer | 3 | Zukauf\n"
                        "07.05. | H1 | Mais | 1 | Zukauf");
    modulzustand().Lagerdatei = betrieb.journaldatei(2024);
    const QString datei = betrieb.journaldatei(2024);
    const QString vorher = datei + u".vorher"_s;
    const QString zettel = QFileInfo(datei).path() + u"/Zaehlung.2024"_s;
    sys::FileCopy(datei, vorher);
    const auto zaehle = [&] {
        Zaehldatei neue(datei);
        neue.setTag(QDate(2024, 6, 1));
        neue.merke({u"Weizen"_s, u"H1"_s}, 10);
        neue.merke({u"Hafer"_s, u"H2"_s}, 3);
    };
    const auto buche = [&] {
        const auto journal = oeffneJournaldatei();
        Zaehldatei offene(datei);
        offene.lies(*journal);
        auto zeilen = zaehlliste(*journal, QDate(2024, 6, 1));
        for (Zaehlzeile& zeile : zeilen)
            if (const auto zahl = offene.offene().find(zeile.paar); zahl != offene.offene().end())
                zeile.Gezaehlt = zahl->second;
        if (!offene.offene().empty()) bucheZaehlung(zeilen, offene);
    };
    stoereUeberall(
        [&] {
            sys::FileCopy(vorher, datei);
            QFile::remove(zettel);
            zaehle();
        },
        buche,
        [&](bool fertig) {
            buche();
            if (fertig) { // as where the end comes between the two
                zaehle();
                Zaehldatei notierte(datei);
                notierte.lies(*oeffneJournaldatei());
                notierte.merkeBuchung(3, {{{u"Weizen"_s, u"H1"_s}, -2.5}, {{u"Hafer"_s, u"H2"_s}, 0}});
                buche();
            }
            jet::engine().release();
            EXPECT_FALSE(QFile::exists(zettel));
            EXPECT_EQ(gezeigt(*jet::Engine().OpenDatabase(datei, u";pwd=quenlor"_s),
                              u"SELECT Artikel, Menge FROM LAGERJOURNAL WHERE ID > 3"_s),
                      zeilen("Hafer | 0\nWeizen | -2,5"));
            EXPECT_EQ(befund(datei), u"ok"_s);
        });
}

TEST(Inventur, ZaehltDreihundertPaareWieEineEigeneRechnung)
{
    const Testbetrieb betrieb;
    QByteArray buchungen;
    std::map<QString, double> bestand, gezaehlt; // by "place article"
    for (int i = 0; i < 1200; ++i) {
        const int paar = i * 7 % 300;
        const double menge = (i * 37 % 400 - 100) / 8.0;
        const QString ort = u"H%1"_s.arg(paar % 10), artikel = u"Artikel %1"_s.arg(paar);
        buchungen += u"%1.0%2. | %3 | %4 | %5 | Zukauf\n"_s.arg(1 + i % 28, 2, 10, QChar(u'0'))
                         .arg(1 + i % 9)
                         .arg(ort, artikel, QString::number(menge).replace(u'.', u','))
                         .toUtf8();
        if (i % 9 < 6) bestand[ort + u' ' + artikel] += menge; // up to the end of June
    }
    betrieb.bucht(2024, buchungen.constData());
    modulzustand().Lagerdatei = betrieb.journaldatei(2024);
    const auto journal = oeffneJournaldatei();
    Zaehldatei zettel(betrieb.journaldatei(2024));
    zettel.setTag(QDate(2024, 6, 30));
    auto liste = zaehlliste(*journal, QDate(2024, 6, 30));
    ASSERT_EQ(liste.size(), 300U);
    for (std::size_t i = 0; i < liste.size(); ++i) {
        const QString name = liste[i].paar.LagerortKurzKu + u' ' + liste[i].paar.Artikel;
        EXPECT_EQ(liste[i].Bestand, bestand[name]) << name.toStdString();
        gezaehlt[name] = bestand[name];
        if (i % 5 == 0) continue;
        liste[i].Gezaehlt = gezaehlt[name] = static_cast<double>(i) / 4;
        zettel.merke(liste[i].paar, liste[i].Gezaehlt);
    }
    EXPECT_EQ(bucheZaehlung(liste, zettel).gebucht, 240);
    for (const Zaehlzeile& zeile : zaehlliste(*journal, QDate(2024, 6, 30)))
        EXPECT_EQ(zeile.Bestand, gezaehlt[zeile.paar.LagerortKurzKu + u' ' + zeile.paar.Artikel]);
}
