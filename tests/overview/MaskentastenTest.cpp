// The keys of a mask beside those that lead from field to field.

#include "tests/overview/Buchung.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Maskentasten = Buchung;

} // namespace

// Esc and the window's X ask before they drop what was typed; "Abbrechen" is an answer already.
TEST_F(Maskentasten, GetipptesGehtNichtStillVerloren)
{
    const struct {
        const char* feld;
        QString text;
        bool fragt;
    } faelle[] = {{"Buchdatum", u"3.4."_s, false}, {"drpLagerort", u"H1"_s, false}, {"drpArtikel", u"Weizen"_s, true},
                  {"txtMenge", u"7"_s, true},      {"txtPreis", u"8"_s, true},      {"txtKommentar", u"x"_s, true}};
    const QString frage = u"Was Sie eingetragen haben, ist noch nicht gespeichert.\r\n\r\nWollen Sie die Maske trotzdem"
                          u" verlassen ?"_s;
    oeffne();
    for (const auto& fall : faelle) {
        SCOPED_TRACE(fall.feld);
        imNaechstenFenster([&](QWidget& maske) {
            schreibe(maske, fall.feld, fall.text);
            hof.meldungen().beantworte(frage, sys::Answer::No);
            if (fall.fragt) {
                esc();
                maske.close();
                EXPECT_TRUE(maske.isVisible());
                EXPECT_EQ(hof.meldungen().abgeholt(), (QStringList{frage, frage}));
                hof.meldungen().beantworte(frage, sys::Answer::Yes);
            }
            esc();
            EXPECT_EQ(hof.meldungen().abgeholt(), fall.fragt ? QStringList(frage) : QStringList());
        });
        kurzel('z');
    }
    imNaechstenFenster([&](QWidget& maske) {
        erfasse(maske, u"Saatgut"_s, u"Roggen"_s, u"7"_s);
        for (const char* feld : {"drpGruppe", "Buchdatum"}) { // what is dropped down closes first
            widget(maske, feld).setFocus();
            QTest::keyClick(&widget(maske, feld), Qt::Key_Down, Qt::AltModifier);
            EXPECT_TRUE(widget(maske, feld).property("DroppedDown").toBool());
            QTest::keyClick(QApplication::activePopupWidget()->focusWidget(), Qt::Key_Escape);
            EXPECT_FALSE(widget(maske, feld).property("DroppedDown").toBool());
        }
        maske.activateWindow(); // as a window manager leaves it
        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &maske; }));
        speichereUndNaechster(maske);
        esc();
    });
    kurzel('p');
    EXPECT_EQ(anzahl(), 7);
}

TEST_F(Maskentasten, TastenDerMaske)
{
    hof.fuehreAus(2024, u"INSERT INTO LAGERJOURNAL (Datum, Artikel, Artikelart, Menge, Buchungsart)"
                        u" VALUES (#5/30/2024#, 'Hafer', 'Saatgut/Sorten', 1, 'Zukauf')"_s);
    oeffne();
    imNaechstenFenster([&](QWidget& maske) {
        const auto drueckeDort = [](Qt::Key taste, Qt::KeyboardModifiers dazu = Qt::NoModifier) {
            QTest::keyClick(QApplication::focusWidget(), taste, dazu);
            return QApplication::focusWidget()->objectName();
        };
        QTest::keyClicks(QApplication::focusWidget(), u"H1"_s);
        EXPECT_EQ(drueckeDort(Qt::Key_F6), u"drpArtikel"_s);
        setzeDort(u"Hafer"_s); // of two kinds
        EXPECT_EQ(hof.meldungen().abgeholt(), QStringList(KeinArtikel));
        schliesseListe(maske, "drpArtikel");
        schreibe(maske, "drpArtikel", u"Weizen"_s);
        EXPECT_EQ(drueckeDort(Qt::Key_F6), u"txtMenge"_s);
        EXPECT_EQ(text(maske, "drpGruppe"), u"Pflanzliche Erzeugnisse"_s); // it follows
        QTest::keyClicks(QApplication::focusWidget(), u"7"_s);
        EXPECT_EQ(drueckeDort(Qt::Key_F6, Qt::ShiftModifier), u"drpArtikel"_s);
        EXPECT_EQ(drueckeDort(Qt::Key_F6, Qt::ShiftModifier), u"drpLagerort"_s);
        EXPECT_EQ(drueckeDort(Qt::Key_F6, Qt::ShiftModifier), u"txtKommentar"_s); // past what is hidden
        drueckeDort(Qt::Key_Return, Qt::ControlModifier);
        EXPECT_EQ(hof.journal(2024).back().menge, 7);
        schreibe(maske, "drpArtikel", u"Weizen"_s);
        schreibe(maske, "txtMenge", u"8"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Enter,
                        Qt::ControlModifier | Qt::ShiftModifier | Qt::KeypadModifier);
    });
    kurzel('p');
    EXPECT_EQ(hof.journal(2024).back().menge, 8);
    for (const auto dazu : {Qt::KeyboardModifiers(Qt::ControlModifier), Qt::ControlModifier | Qt::ShiftModifier}) {
        imNaechstenFenster([&](QWidget& maske) {
            schreibe(maske, "txtMenge", u"9"_s);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Enter, dazu | Qt::KeypadModifier);
        });
        aendere();
    }
    EXPECT_EQ(hof.journal(2024).back().menge, 9);
    EXPECT_EQ(anzahl(), 9);
}
