// What goes wrong while a booking is typed or saved: the mask says so, keeps what was typed, and no row comes twice or half.

#include "tests/overview/Buchung.h"

#include "platform/controls/DataCombo.h"
#include "platform/system/Files.h"
#include "tests/support/Fremdprogramm.h"

#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString Tausenderpunkt =
    u"\"1.5\" ist keine Zahl. Bitte trennen Sie Dezimalstellen mit einem Komma; ein Punkt kann "
    u"nur Tausender gruppieren."_s;

/// What is selected in the field that has the focus.
QString markiert()
{
    QWidget* const feld = QApplication::focusWidget();
    const auto* zeile = qobject_cast<QLineEdit*>(feld);
    if (!zeile) zeile = feld->findChild<QLineEdit*>();
    return zeile ? zeile->selectedText() : QString();
}

} // namespace

TEST_F(Buchung, EingabenDieFehlenWerdenGenannt)
{
    oeffne();
    imNaechstenFenster([&](QWidget& maske) {
        const auto meldung = [&] {
            speichere(maske);
            return hof.meldungen().abgeholt().join(u'|');
        };
        EXPECT_EQ(meldung(), u"Bitte wählen Sie einen Lagerort aus !"_s);
        setze(maske, "drpLagerort", u"H1"_s);
        EXPECT_EQ(meldung(), u"Bitte wählen Sie einen Artikel aus !"_s);
        EXPECT_TRUE(widget(maske, "drpGruppe").hasFocus());
        setze(maske, "drpGruppe", u"Treib"_s);
        EXPECT_EQ(meldung(), u"Bitte wählen Sie einen Artikel aus !"_s);
        EXPECT_TRUE(widget(maske, "drpArtikel").hasFocus());
        setze(maske, "drpArtikel", u"Dies"_s);
        EXPECT_EQ(meldung(), u"Bitte tragen Sie eine Menge ein !"_s);
        EXPECT_TRUE(widget(maske, "txtMenge").hasFocus());
        setze(maske, "txtMenge", u"7"_s);
        setze(maske, "Buchdatum", {});
        EXPECT_EQ(meldung(), u"Bitte tragen Sie ein Datum ein !"_s);
        brichAb(maske);
    });
    kurzel('p');
    EXPECT_EQ(anzahl(), 6);
}

TEST_F(Buchung, WasKeineEingabeIstWirdNichtGenommen)
{
    struct Fall {
        const char* feld;
        QString getippt,
            steht,   ///< What the field shows then.
            meldung; ///< What was said; the focus stays when it was something.
    };
    const QString lang(256, u'x');
    const Fall faelle[] = {
        {"txtMenge", u"12abc"_s, u"12,00"_s, {}},
        {"txtPreis", u"1e30"_s, u"130,00"_s, {}},
        {"txtMenge", u"1.5"_s, u"1.5"_s, Tausenderpunkt},
        {"Buchdatum", u"1.1.2025"_s, u"01.01.2025"_s,
         u"Das Datum 01.01.2025 ist zu spät. Das letzte mögliche Datum ist der 31.12.2024."_s},
        {"Buchdatum", u"31.2."_s, u"31.2."_s, u"\"31.2.\" ist kein Datum. Bitte tragen Sie Tag und Monat ein."_s},
        {"drpArtikel", u"Benzin"_s, u"Benzin"_s, KeinArtikel},
        {"drpArtikel", u"Altroggen"_s, u"Altroggen"_s, KeinArtikel}, // blocked
        // No text is longer than its column.
        {"drpLagerort", u"Halle am Waldrand"_s, u"Halle am Waldrand"_s,
         u"\"Halle am Waldrand\" hat 17 Zeichen. Als Lagerort sind höchstens 15 möglich."_s},
        {"txtEinheit", u"Dezitonnen zu 100"_s, u"Dezitonnen zu 100"_s,
         u"\"Dezitonnen zu 100\" hat 17 Zeichen. Als Einheit sind höchstens 15 möglich."_s},
        {"txtPreisFaktor", u"0,25"_s, u"0,25"_s,
         u"\"0,25\" hat 4 Zeichen. Als Preisfaktor sind höchstens 3 möglich."_s},
        {"stHandler", u"Landh"_s, u"Landhandel Obermoos"_s, // he has no short code
         u"\"Landhandel Obermoos\" hat 19 Zeichen. Als Geschäftspartner sind höchstens 15 möglich."_s},
        {"txtKommentar", lang, lang,
         u"\""_s + lang + u"\" hat 256 Zeichen. Als Kommentar sind höchstens 255 möglich."_s},
    };
    oeffne();
    hof.meldungen().beantworte(PartnerFrage, sys::Answer::No);
    for (const Fall& fall : faelle) {
        SCOPED_TRACE(fall.getippt.toStdString());
        const QStringList meldung = fall.meldung.isEmpty() ? QStringList() : QStringList(fall.meldung);
        for (const bool verlaesst : {true, false}) {
            imNaechstenFenster([&](QWidget& maske) {
                erfasse(maske, u"Saatgut"_s, u"Roggen"_s, u"7"_s);
                schreibe(maske, fall.feld, fall.getippt);
                if (verlaesst)
                    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                else // the letter presses without leaving the field; the partner's question ends the save otherwise
                    speichere(maske);
                EXPECT_EQ(hof.meldungen().abgeholt().value(0),
                          verlaesst || !meldung.isEmpty() ? meldung.value(0) : PartnerFrage);
                EXPECT_TRUE(meldung.isEmpty() || widget(maske, fall.feld).hasFocus());
                EXPECT_EQ(text(maske, fall.feld), fall.steht);
                EXPECT_TRUE(verlaesst || meldung.isEmpty() || markiert() == fall.steht); // to be typed over
                schliesseListe(maske, fall.feld);
                brichAb(maske);
            });
            kurzel('z');
        }
    }
    EXPECT_EQ(hof.meldungen().abgeholt(), QStringList());
    EXPECT_EQ(anzahl(), 6);
}

TEST_F(Buchung, EinApostrophImNamenBringtGenauEineZeile)
{
    oeffne();
    hof.meldungen().beantworteAlle(sys::Answer::Ignore);
    imNaechstenFenster([&](QWidget& maske) {
        erfasse(maske, u"Saatgut"_s, u"Bauer"_s, {});
        EXPECT_TRUE(hof.meldungen().abgeholt().value(0).startsWith(bericht(3075)));
        EXPECT_EQ(text(maske, "drpArtikel"), u"Bauer's Mix"_s);
        setze(maske, "txtMenge", u"7"_s);
        setze(maske, "txtEinheit", u"kg"_s);
        hof.meldungen().abgeholt();
        speichere(maske);
    });
    kurzel('p');
    EXPECT_TRUE(
        hof.meldungen().abgeholt().contains(bericht(3077) + u"Syntaxfehler (fehlender Operator) in Ausdruck."_s));
    EXPECT_EQ(anzahl(), 7);
    EXPECT_EQ(letzteZeile(), u"H1 | Bauer's Mix | Saatgut/Sorten | 7 | 7 | kg | 0 | 1 | Produktion | 0 |  |  | "_s);
    imNaechstenFenster([&](QWidget& maske) { // a count has no difference to a stock that cannot be looked up
        erfasse(maske, u"Saatgut"_s, u"Bauer"_s, u"7"_s);
        hof.meldungen().abgeholt();
        speichere(maske);
        EXPECT_TRUE(hof.meldungen().abgeholt().value(0).startsWith(bericht(3075)));
        brichAb(maske);
    });
    kurzel('l');
    hof.meldungen().abgeholt();
    EXPECT_EQ(anzahl(), 7);
}

TEST_F(Buchung, OhneStammdatenBleibtDieMaskeBedienbar)
{
    struct Fall {
        QString datei;
        bool fehlt; ///< Otherwise it has another password.
        int nummer;
    };
    const QString stamm = hof.ort().daten() + u"/Grundstamm.mdb"_s;
    const QString anlagen = hof.ort().anlagen() + u"/Anlagen.mdb"_s;
    const Fall faelle[] = {{stamm, true, 3024}, {anlagen, true, 3024}, {stamm, false, 3031}, {anlagen, false, 3031}};
    oeffne();
    hof.meldungen().beantworteAlle(sys::Answer::Ignore);
    for (const Fall& fall : faelle) {
        SCOPED_TRACE(fall.datei.toStdString() + ' ' + std::to_string(fall.nummer));
        ASSERT_TRUE(QFile::rename(fall.datei, fall.datei + u".weg"_s));
        if (!fall.fehlt) jet::engine().CreateDatabase(fall.datei, u";LANGID=0x0409;CP=1252;COUNTRY=0;pwd=anders"_s);
        for (const char art : {'e', 'l'}) {
            imNaechstenFenster([&](QWidget& maske) {
                EXPECT_EQ(text(maske, "Buchdatum").right(4), u"2024"_s);
                setze(maske, "drpLagerort", u"H1"_s);
                setze(maske, "drpGruppe", u"Saatgut"_s);
                setze(maske, "drpGruppe", u"Pflanzliche"_s);
                setze(maske, "drpArtikel", u"Weizen"_s);
                setze(maske, "txtMenge", u"7"_s);
                const QStringList meldungen = hof.meldungen().abgeholt();
                EXPECT_FALSE(meldungen.isEmpty());
                for (const QString& meldung : meldungen)
                    EXPECT_TRUE(meldung.startsWith(bericht(fall.nummer))) << meldung.toStdString();
                EXPECT_EQ(wert(maske, "txtBisher"), 80);
                brichAb(maske);
            });
            kurzel(art);
        }
        hof.meldungen().abgeholt();
        QFile::remove(fall.datei);
        ASSERT_TRUE(QFile::rename(fall.datei + u".weg"_s, fall.datei));
    }
    EXPECT_EQ(anzahl(), 6);
}

TEST_F(Buchung, EinGesperrtesJournalBekommtDieZeileGenauEinmal)
{
    oeffne();
    hof.meldungen().beantworteAlle(sys::Answer::Ignore);
    const auto speichereGesperrt = [&](QWidget& maske, double menge) {
        {
            const Fremdprogramm anderes(hof.journaldatei(2024));
            speichere(maske);
            widget(maske, "Command2(1)").setFocus();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
            EXPECT_TRUE(widget(maske, "Command2(1)").hasFocus()); // the next press must not meet "Abbrechen"
        }
        EXPECT_EQ(hof.meldungen().abgeholt().size(), 2);
        EXPECT_TRUE(maske.isVisible());
        EXPECT_EQ(wert(maske, "txtMenge"), menge); // as typed
        speichere(maske);
    };
    imNaechstenFenster([&](QWidget& maske) {
        erfasse(maske, u"Pflanzliche"_s, u"Weizen"_s, u"7"_s);
        speichereGesperrt(maske, 7);
    });
    kurzel('e');
    EXPECT_EQ(anzahl(), 7);
    EXPECT_EQ(hof.journal(2024).back().menge, -7);
    imNaechstenFenster([&](QWidget& maske) {
        setze(maske, "txtMenge", u"8"_s);
        speichereGesperrt(maske, 8);
    });
    aendere();
    EXPECT_EQ(anzahl(), 7);
    EXPECT_EQ(hof.journal(2024).back().menge, -8);
}
