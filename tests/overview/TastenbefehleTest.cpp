// The main screen without a mouse: where its keys lead, and when they lead nowhere.

#include "tests/overview/Buchung.h"

#include "platform/controls/ComboBox.h"
#include "platform/controls/DataGrid.h"
#include "platform/controls/DateCombo.h"
#include "platform/controls/Tasten.h"
#include "platform/controls/TextBox.h"
#include "platform/report/PrintControl.h"
#include "tests/support/Pdf.h"
#include "tests/support/Rekorder.h"
#include "tests/support/Tabellenblatt.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
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
    /// Presses words such as "Strg+O", "F6" or "Eingabe" and types others, where the focus is; what follows ">" in the modal
    /// window that comes.
    void spiele(const QString& tasten) const
    {
        const QString dann = tasten.section(u" > "_s, 1);
        if (!dann.isEmpty()) imNaechstenFenster([=, this](QWidget&) { spiele(dann); });
        if (!QApplication::activeModalWidget()) aktiviere();
        for (const QString& wort : tasten.section(u" > "_s, 0, 0).split(u' ')) {
            static const QRegularExpression taste(u"\\+|^(F\\d+|Tab|Eingabe|Entf)$"_s);
            if (wort.contains(taste)) {
                const auto folge = QKeySequence::fromString(QString(wort)
                                                                .replace(u"Strg"_s, u"Ctrl"_s)
                                                                .replace(u"Umschalt"_s, u"Shift"_s)
                                                                .replace(u"Eingabe"_s, u"Return"_s)
                                                                .replace(u"Entf"_s, u"Del"_s));
                druecke(folge[0].key(), folge[0].keyboardModifiers());
            } else {
                QTest::keyClicks(QApplication::focusWidget(), wort);
                QCoreApplication::processEvents();
            }
        }
    }
    /// The lines of what keys print from a window.
    QString gedruckt(QWidget& aus, const QString& tasten) const
    {
        auto& Report = *aus.findChild<report::PrintControl*>(u"Report"_s);
        const QString pdf = hof.ort().verzeichnis() + u"/tag.pdf"_s;
        QFile::remove(pdf);
        Report.setDestination(report::PrintControl::ToFile);
        Report.setPrintFileName(pdf);
        spiele(tasten);
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return QFile::exists(pdf); })); // a letter presses a button through an animation
        return readPdf(pdf).front().join(u'\n');
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
    druecke(Qt::Key_F); // from anywhere, and where one is already
    druecke(Qt::Key_End, Qt::NoModifier);
    druecke(Qt::Key_F);
    EXPECT_EQ(markiert(), u"Weizen"_s);
}

TEST_F(Tasten, TabGehtWieDasAuge)
{
    oeffne();
    EXPECT_TRUE(fenster->minimumSizeHint().boundedTo(QSize(780, 480)) ==
                fenster->minimumSizeHint()); // nothing is left out
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
    hof.meldungen().abgeholt(); // what that window says of itself
}

// Purchase, sale, consumption, count, transfer, change, delete, filter, print, spreadsheet, delivery note: what a day has.
TEST_F(Tasten, EinTagGehtOhneMaus)
{
    NEEDS_PDFTOTEXT;
    NEEDS_OPENPYXL;
    hof.meldungen().beantworteAlle(sys::Answer::Yes);
    oeffne();
    struct Schritt {
        QString tasten; ///< In the next window after ">".
        QString danach; ///< The journal's count and its current row.
    };
    const Schritt tag[] = {
        {u"Strg+N z > H1 Tab saat Tab roggen F6 10 F6 F6 HUBER Strg+Umschalt+Eingabe"_s,
         u"7: 09.05. | H1 | Roggen | +10,00 | Zukauf"_s},
        {u"Strg+N v > H1 F6 weizen F6 30 F6 F6 HUBER Strg+Umschalt+Eingabe"_s,
         u"8: 06.05. | H1 | Weizen | -30,00 | Verkauf"_s},
        {u"Strg+N e > H2 F6 weizen F6 5 Strg+Umschalt+Eingabe"_s,
         u"9: 08.05. | H2 | Weizen | -5,00 | Eigenverbrauch"_s},
        {u"Strg+N l > H1 F6 weizen F6 49 Strg+Umschalt+Eingabe"_s, u"10: 01.06. | H1 | Weizen | -1,00 | Korrektur"_s},
        {u"Strg+N u > H1 F6 weizen F6 9 F6 H2 Strg+Umschalt+Eingabe"_s,
         u"12: 01.06. | H2 | Weizen | +9,00 | Umbuchung"_s},
        {u"Strg+F roggen Strg+1"_s, u"1: 09.05. | H1 | Roggen | +10,00 | Zukauf"_s},
        {u"Eingabe > 12,5 Strg+Eingabe"_s, u"1: 09.05. | H1 | Roggen | +12,50 | Zukauf"_s},
        {u"Strg+1 Entf"_s, u"0: keine"_s},
        {u"Strg+0 Strg+O h2 Strg+G pflanz Strg+T 6.5. Tab 8.5. Eingabe"_s,
         u"1: 08.05. | H2 | Weizen | -5,00 | Eigenverbrauch"_s},
    };
    for (const auto& [tasten, danach] : tag) {
        spiele(tasten);
        EXPECT_EQ(ueberschrift("Journalliste").section(u' ', 0, 0) + u": "_s + aktuelleBewegung(), danach)
            << tasten.toStdString();
    }
    hof.meldungen().abgeholt();

    QStringList tabellen;
    {
        Rekorder oeffner(u"xdg-open"_s);
        for (const QString& tasten : {u"F12"_s, u"Strg+2 F12"_s}) {
            spiele(tasten);
            tabellen += oeffner.aufruf();
        }
    }
    for (const auto& [tabelle, zeile] : {std::pair(tabellen.value(0), u"Eigenverbrauch | H2 |  | 5"_s),
                                         std::pair(tabellen.value(1), u"H2 |  | 5 [#,##0.00] | -5"_s)})
        EXPECT_TRUE(tabellenblatt(tabelle).last().contains(zeile)) << tabellenblatt(tabelle).last().toStdString();
    EXPECT_TRUE(gedruckt(*fenster, u"Strg+1 Strg+P"_s).contains(u"08.05.2024 Weizen"_s));
    imNaechstenFenster([&](QWidget& lieferscheine) {
        EXPECT_TRUE(gedruckt(lieferscheine, u"Alt+D"_s).contains(u"1 Weizen 30,00"_s));
        esc();
    });
    druecke(Qt::Key_L);
}
