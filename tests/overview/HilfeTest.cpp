#include "overview/Hilfe.h"
#include "platform/controls/MessageBoxes.h"
#include "tests/overview/Buchung.h"
#include "tests/support/Rekorder.h"

#include <zablager/FileError.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

void schreibe(const QString& datei)
{
    ASSERT_TRUE(QDir().mkpath(QFileInfo(datei).path()));
    ASSERT_TRUE(QFile(datei).open(QIODevice::WriteOnly));
}

class Hilfetaste : public Buchung {
protected:
    /// The file that F1 opens where the focus is, or names where it should lie.
    QString f1()
    {
        const sys::MessageScope gemerkt(hof.meldungen());
        Rekorder oeffner(u"xdg-open"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
        const QStringList meldungen = hof.meldungen().abgeholt();
        return meldungen.isEmpty() ? oeffner.aufruf().value(0) : meldungen.first();
    }
};

} // namespace

TEST(Hilfe, OeffnetDieHilfedateiSonstDasHandbuchSonstKeins)
{
    Testbetrieb hof;
    Rekorder oeffner(u"xdg-open"_s);
    const QTemporaryDir ort;
    const QString Hilfedatei = ort.path() + u"\\ZAB Hilfe\\Lagerverwaltung.chm"_s;
    const QString bibliothek = ort.filePath(u"lib/zablager.so"_s);
    const QString liegt = ort.filePath(u"zab hilfe/lagerverwaltung.CHM"_s);
    const QString handbuch = ort.filePath(u"share/doc/zablager/handbuch/buchen.html"_s);

    zeigeHilfe(Hilfedatei, bibliothek, u"buchen"_s);
    EXPECT_EQ(hof.meldungen().abgeholt(),
              QStringList{u"Die Hilfe wurde nicht gefunden. Erwartet wird sie in einer dieser beiden Dateien:\r\r"_s +
                          ort.filePath(u"ZAB Hilfe/Lagerverwaltung.chm"_s) + u'\r' + handbuch +
                          u"\r\rWird die Lagerverwaltung neu installiert, so ist auch das Handbuch wieder da."_s});

    schreibe(handbuch);
    zeigeHilfe(Hilfedatei, bibliothek, u"buchen"_s);
    EXPECT_EQ(oeffner.aufruf(), QStringList{handbuch});

    schreibe(liegt);
    zeigeHilfe(Hilfedatei, bibliothek, u"buchen"_s);
    EXPECT_EQ(oeffner.aufruf(), QStringList{liegt});
}

TEST(Hilfe, SagtWennNichtsSieOeffnenKann)
{
    const Rekorder andere(u"firefox"_s);
    const QTemporaryDir ort;
    const QString handbuch = ort.filePath(u"share/doc/zablager/handbuch/hauptbildschirm.html"_s);
    schreibe(handbuch);
    QString text;
    try {
        zeigeHilfe({}, ort.filePath(u"lib/zablager.so"_s), u"hauptbildschirm"_s);
    } catch (const sys::FileError& fehler) {
        text = fehler.text();
    }
    EXPECT_EQ(text, u"Es gibt auf diesem Rechner kein Programm, das die Datei '"_s + handbuch + u"' öffnet."_s);
}

TEST_F(Hilfetaste, FuehrtInJedemFensterZuSeinerSeite)
{
    hof.fuehreAus(2024, u"INSERT INTO LAGERJOURNAL (Datum, Artikel, Artikelart, LagerortKurzKu, Menge, Einheit) VALUES"
                        u" (#3/1/2024#, 'Alpha', 'Pflanzenschutzmittel', 'H1', 1, 'l')"_s);
    hof.fuehreAus(2024,
                  u"UPDATE LAGERJOURNAL SET Uberstallt_alt = 'HUBER'"_s); // or the delivery notes tell of its lack
    MessageBoxes kasten;
    const sys::MessageScope gezeigt(kasten); // what the register says is a window of its own
    struct Fall {
        const char* oeffnet; ///< A letter is a code of the short entry.
        const char* seite;
    };
    const Fall faelle[] = {{"z", "buchen"}, {"l", "buchen"}, {"u", "buchen"}, {"L", "lieferscheine"}, {"M", "pruefen"}};
    oeffne();
    for (const auto& [oeffnet, seite] : faelle) {
        SCOPED_TRACE(oeffnet);
        imNaechstenFenster([&, seite = seite](QWidget&) {
            const QString gezeigteSeite = f1();
            EXPECT_TRUE(gezeigteSeite.contains(u"/handbuch/"_s + QLatin1String(seite) + u".html"_s))
                << gezeigteSeite.toStdString();
            esc();
        });
        aktiviere();
        if (*oeffnet >= 'a')
            kurzel(*oeffnet);
        else
            drucke("Journalliste", Qt::Key(*oeffnet), Qt::ControlModifier);
    }
    aktiviere();
    EXPECT_TRUE(f1().contains(u"/handbuch/hauptbildschirm.html"_s));
}
