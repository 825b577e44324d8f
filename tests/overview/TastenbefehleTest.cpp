// The main screen without a mouse: where its keys lead, and when they lead nowhere.

#include "tests/overview/Buchung.h"

#include "platform/controls/ComboBox.h"
#include "platform/controls/DataGrid.h"
#include "platform/controls/DateCombo.h"
#include "platform/controls/Tasten.h"
#include "platform/controls/TextBox.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class Tasten : public Buchung {
protected:
    static void druecke(int taste, Qt::KeyboardModifiers dazu = Qt::ControlModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(taste), dazu);
        QCoreApplication::processEvents();
    }
    static QString hier() { return QApplication::focusWidget()->objectName(); }
    static QString markiert()
    {
        auto* zeile = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        if (!zeile) zeile = QApplication::focusWidget()->findChild<QLineEdit*>();
        return zeile ? zeile->selectedText() : QString();
    }
};

/// The keys and underlined letters that one window answers to, wherever in it the focus is, and once more those that one
/// of its fields answers to as well.
QStringList belegt(const QWidget& fenster)
{
    QStringList tasten;
    const auto nimm = [&tasten](const QKeySequence& taste) {
        if (!taste.isEmpty()) tasten.append(tastenname(taste));
    };
    for (const auto* const taste : fenster.findChildren<QShortcut*>())
        if (taste->context() == Qt::WindowShortcut) nimm(taste->key());
    for (const auto* const knopf : fenster.findChildren<QAbstractButton*>())
        nimm(knopf->shortcut());
    for (const auto* const schild : fenster.findChildren<QLabel*>())
        if (schild->buddy()) nimm(QKeySequence::mnemonic(schild->text()));
    if (const auto* const leiste = fenster.findChild<QMenuBar*>())
        for (const QAction* const menu : leiste->actions())
            nimm(QKeySequence::mnemonic(menu->text()));
    for (const auto* const befehl : fenster.findChildren<QAction*>())
        nimm(befehl->shortcut());
    for (const auto* const taste : fenster.findChildren<QShortcut*>()) // of one field: several may have it
        if (taste->context() == Qt::WidgetShortcut && tasten.contains(tastenname(taste->key()))) nimm(taste->key());
    return tasten;
}

} // namespace

TEST_F(Tasten, FuehrenZuIhremFeldUndMarkierenEs)
{
    oeffne();
    tippe("drpArtikel", u"Weizen"_s);
    const std::pair<int, QString> felder[] = {{Qt::Key_N, u"KurzEingabe"_s},      {Qt::Key_O, u"drpLagerOrte"_s},
                                              {Qt::Key_G, u"drpArtikelGruppe"_s}, {Qt::Key_F, u"drpArtikel"_s},
                                              {Qt::Key_T, u"VonDatum"_s},         {Qt::Key_J, u"drpJahr"_s},
                                              {Qt::Key_2, u"BestandListe"_s},     {Qt::Key_1, u"Journalliste"_s}};
    feld<TextBox>("KurzEingabe").setText(u"Z"_s);
    for (const auto& [taste, name] : felder) {
        druecke(taste);
        EXPECT_EQ(hier(), name);
        EXPECT_EQ(markiert(), QApplication::focusWidget()->property("Text").toString());
    }
    const std::pair<Qt::KeyboardModifier, QString> gruppen[] = {
        {Qt::NoModifier, u"SSOption1"_s},       {Qt::NoModifier, u"KurzEingabe"_s},
        {Qt::NoModifier, u"drpLagerOrte"_s},    {Qt::NoModifier, u"Journalliste"_s},
        {Qt::ShiftModifier, u"drpLagerOrte"_s}, {Qt::ShiftModifier, u"KurzEingabe"_s}};
    for (const auto& [dazu, name] : gruppen) {
        druecke(Qt::Key_F6, dazu);
        EXPECT_EQ(hier(), name);
    }
    druecke(Qt::Key_F); // where the focus stays, the field does not
    druecke(Qt::Key_F);
    EXPECT_EQ(markiert(), u"Weizen"_s);
}

TEST_F(Tasten, TabGehtWieDasAuge)
{
    oeffne();
    feld<QWidget>("KurzEingabe").setFocus();
    for (const char* const name : {"DrpBuchart",
                                   "Command7(0)",
                                   "drpLagerOrte",
                                   "drpArtikelGruppe",
                                   "drpArtikel",
                                   "drpJahr",
                                   "VonDatum",
                                   "Buchdatum",
                                   "chkOhneNull",
                                   "chkNurSumme",
                                   "qt_tabwidget_tabbar",
                                   "Journalliste",
                                   "Command7(1)",
                                   "Command4",
                                   "SSOption1",
                                   "DrpGruppierung",
                                   "Command2",
                                   "ExcelButton",
                                   "Command5",
                                   "Command1"}) {
        druecke(Qt::Key_Tab, Qt::NoModifier);
        EXPECT_EQ(hier(), QLatin1String(name));
    }
}

TEST_F(Tasten, DasMenueDerZeileKannWasIhreKnoepfeKoennen)
{
    oeffne();
    auto& liste = feld<DataGrid>("Journalliste");
    waehleBewegung(3);
    const auto waehle = [&](Qt::Key buchstabe) {
        const QPoint stelle = liste.visualRect(liste.currentIndex()).center();
        QContextMenuEvent menue(QContextMenuEvent::Keyboard, stelle, liste.mapToGlobal(stelle));
        QCoreApplication::sendEvent(&liste, &menue);
        ASSERT_TRUE(QApplication::activePopupWidget());
        QTest::keyClick(QApplication::activePopupWidget(), buchstabe);
    };
    imNaechstenFenster([](QWidget& maske) {
        EXPECT_EQ(text(maske, "txtMenge"), u"1500,00"_s);
        esc();
    });
    waehle(Qt::Key_D);
    aktiviere();
    waehle(Qt::Key_K);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(u"\tDiesel\t"_s));
    waehle(Qt::Key_S);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    waehle(Qt::Key_S);
    QStringList angehakt;
    for (const QAction* const spalte : QApplication::activePopupWidget()->actions())
        if (spalte->isChecked()) angehakt.append(spalte->text());
    EXPECT_EQ(angehakt, QStringList(u"Artikel"_s));
    for (int offen = 0; offen < 2; ++offen)
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    hof.meldungen().beantworte(Loeschfrage, sys::Answer::Yes);
    waehle(Qt::Key_L);
    EXPECT_EQ(hof.meldungen().abgeholt(), QStringList(Loeschfrage));
    EXPECT_EQ(anzahl(), 5);
}

TEST_F(Tasten, InsKuerzelSchlaegtNichtsNach)
{
    oeffne();
    auto& eingabe = feld<TextBox>("KurzEingabe");
    eingabe.setText(u"Z"_s);
    for (const char* const vorher : {"drpArtikel", "KurzEingabe"}) { // from elsewhere, and where one is already
        for (const auto& losgelassen : {std::pair(Qt::Key_N, Qt::Key_Control), std::pair(Qt::Key_Control, Qt::Key_N)}) {
            feld<QWidget>(vorher).setFocus();
            eingabe.deselect();
            QTest::keyPress(QApplication::focusWidget(), Qt::Key_Control, Qt::ControlModifier);
            QTest::keyPress(QApplication::focusWidget(), Qt::Key_N, Qt::ControlModifier);
            QTest::keyRelease(QApplication::focusWidget(), losgelassen.first,
                              losgelassen.first == Qt::Key_N ? Qt::ControlModifier : Qt::NoModifier);
            QTest::keyRelease(QApplication::focusWidget(), losgelassen.second);
            EXPECT_EQ(eingabe.selectedText(), u"Z"_s); // a look-up would have opened the mask and waited for it
        }
    }
}

TEST_F(Tasten, RuhenUnterEinerMaskeUndUnterEinerListe)
{
    oeffne();
    imNaechstenFenster([&](QWidget& maske) {
        const QString dort = hier();
        for (const Tastenzeile& zeile : tastentabelle()) {
            if (zeile.gilt != Geltung::Hauptbildschirm) continue;
            const QKeyCombination taste = zeile.tasten.constFirst()[0];
            druecke(taste.key(), taste.keyboardModifiers());
            QTest::keyClick(fenster.get(), taste.key(), taste.keyboardModifiers());
            EXPECT_EQ(hier(), dort) << tastenname(zeile.taste).toStdString();
            EXPECT_EQ(QApplication::activeModalWidget(), &maske);
        }
        esc();
    });
    kurzel('z');
    EXPECT_EQ(feld<QTabWidget>("SSTab1").currentIndex(), 0);

    aktiviere();
    druecke(Qt::Key_O);
    druecke(Qt::Key_F2, Qt::NoModifier);
    ASSERT_TRUE(feld<ComboBox>("drpLagerOrte").DroppedDown());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_J, Qt::ControlModifier);
    EXPECT_TRUE(feld<ComboBox>("drpLagerOrte").DroppedDown());
    EXPECT_FALSE(feld<ComboBox>("drpJahr").hasFocus());
}

TEST_F(Tasten, HebenDieEingrenzungAufUndOeffnenDieEintragung)
{
    oeffne();
    drucke("chkOhneNull", Qt::Key_Space);
    tippe("drpLagerOrte", u"H2"_s);
    tippe("drpArtikelGruppe", u"treib"_s);
    tippe("VonDatum", u"31.2."_s);
    drucke("Journalliste", Qt::Key_Home);
    const QString vorher = aktuelleBewegung();
    QSignalSpy gelesen(&feld<DataControl>("Bestanddaten"), &DataControl::RowsReplaced);
    QTest::keyClicks(&feld<QWidget>("Buchdatum"), u"2."_s); // not taken yet
    druecke(Qt::Key_0);
    EXPECT_EQ(gelesen.count(), 1);
    EXPECT_EQ(ueberschrift("Journalliste"), u"6 Bewegungen"_s);
    EXPECT_EQ(ueberschrift("BestandListe"), u"3 Artikel"_s); // the tick stays
    EXPECT_EQ(feld<ComboBox>("drpArtikel").ListCount(), 4);
    EXPECT_EQ(feld<DateCombo>("VonDatum").Text() + feld<DateCombo>("Buchdatum").Text(), u"01.01.202431.12.2024"_s);
    EXPECT_EQ(aktuelleBewegung(), vorher);

    imNaechstenFenster([](QWidget& maske) {
        EXPECT_EQ(text(maske, "drpArtikel"), u"Diesel"_s);
        esc();
    });
    druecke(Qt::Key_1);
    druecke(Qt::Key_Enter, Qt::KeypadModifier);
}

// Two holders of one key would make neither work.
TEST_F(Tasten, SindInKeinemFensterDoppeltVergeben)
{
    oeffne();
    const auto pruefe = [](QWidget& eines) {
        QStringList tasten = belegt(eines);
        EXPECT_GE(tasten.size(), 2) << eines.objectName().toStdString();
        EXPECT_EQ(tasten.removeDuplicates(), 0)
            << eines.objectName().toStdString() << ": " << belegt(eines).join(u' ').toStdString();
    };
    pruefe(*fenster);
    for (const char buchstabe : {'z', 'l', 'u'}) {
        imNaechstenFenster([&](QWidget& maske) {
            pruefe(maske);
            esc();
        });
        kurzel(buchstabe);
    }
    aktiviere();
    imNaechstenFenster([&](QWidget& lieferscheine) {
        pruefe(lieferscheine);
        esc();
    });
    druecke(Qt::Key_L);
}
