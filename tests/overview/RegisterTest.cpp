// The check of plant-protection products against the register, and the text that it shows.

#include "tests/overview/Hauptbildschirm.h"

#include "platform/controls/ComboBox.h"
#include "platform/controls/DateCombo.h"
#include "platform/jet/Engine.h"

#include <QAction>
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class Register : public Hauptbildschirm {
protected:
    QString stammdaten() const { return hof.ort().programm() + u"/ZABStammdaten_2024.mdb"_s; }

    void fuelle(const QStringList& anweisungen) const
    {
        const auto stamm = jet::engine().OpenDatabase(stammdaten(), u";pwd=RT-58KX"_s);
        for (const QString& anweisung : anweisungen)
            stamm->Execute(u"INSERT INTO "_s + anweisung);
    }

    /// "Extras, Pflanzenschutzmittel prüfen"; the text that it showed.
    QString pruefe()
    {
        feld<QAction>("M_PflanzschPrufen").trigger();
        return hof.meldungen().abgeholt().value(0);
    }
};

} // namespace

TEST_F(Register, JedesMittelBekommtSeinenSatz)
{
    const QString namen[] = {u"Alpha"_s, u"Beta"_s, u"Delta     (4711-00)"_s, u"Epsilon"_s, u"Eta"_s,
                             u"Gamma"_s, u"Zeta"_s};
    for (const QString& name : namen)
        hof.fuehreAus(2024,
                      u"INSERT INTO LAGERJOURNAL (Datum, Artikel, Artikelart, LagerortKurzKu, Menge, Einheit) VALUES"
                      u" (#3/1/2024#, '"_s +
                          name + u"', 'Pflanzenschutzmittel', 'H1', 1, 'l')"_s);
    const QString mittel = u"PFLANZENSCHUTZMITTEL (NAME, Gruppe, Regnr) VALUES "_s;
    const QString eintrag = u"REGISTER (Regnr, RegNrAlt, BEZEICHNUNG, Aufbrauchsfrist) VALUES "_s;
    fuelle({mittel + u"('Beta', 'Netzmittel', '2')"_s, mittel + u"('Delta     (4711-00)', 'Fungizid', '4711')"_s,
            mittel + u"('Epsilon', 'Herbizide', '5')"_s, mittel + u"('Eta', 'Insektizid, Akarizid', '7')"_s,
            mittel + u"('Gamma', 'Herbizid', '3')"_s, mittel + u"('Zeta', 'Beizmittel', '6')"_s,
            eintrag + u"('3', '', ' gamma', NULL)"_s, eintrag + u"('9', '4711', 'DELTA', NULL)"_s,
            eintrag + u"('5', '', 'Ein anderes', NULL)"_s, eintrag + u"('6', '', 'Zeta', #12/30/2024#)"_s,
            eintrag + u"('7', '', 'Eta', #12/31/2024#)"_s});
    oeffne();
    tippe("drpLagerOrte", u"H2"_s);
    tippe("VonDatum", u"1.4."_s);
    const QString linie = u"\r\n"_s + QString(158, u'=');
    const QString das = u"\r\nDas Pflanzenschutzmittel "_s;
    const QString vorsicht = linie + u"\r\nVORSICHT: Das Pflanzenschutzmittel "_s;
    EXPECT_EQ(
        pruefe(),
        das +
            u"Alpha wurde in der Pflanzenschutzmitteldatenbank nicht gefunden. Es kann nicht überprüft werden und ist"
            u" wahrscheinlich nicht mehr zugelassen."_s +
            das + u"Delta     (4711-00) wurde in der Registerdatenbank gefunden und ist zugelassen."_s + vorsicht +
            u"Epsilon wurde in der Registerdatenbank nicht gefunden. Es ist wahrscheinlich nicht mehr zugelassen."_s +
            linie + vorsicht +
            u"Eta wurde in der Registerdatenbank gefunden. Es muss bis 31.12.2024 verbraucht werden."_s + linie + das +
            u"Gamma wurde in der Registerdatenbank gefunden und ist zugelassen."_s + vorsicht +
            u"Zeta wurde in der Registerdatenbank gefunden. Es ist am 30.12.2024 ausgelaufen!"_s + linie);
    EXPECT_EQ(feld<ComboBox>("drpArtikelGruppe").Text(), u"Pflanzenschutzmittel"_s); // it stays
    EXPECT_EQ(feld<ComboBox>("drpLagerOrte").Text(), u"Alle Lagerorte"_s);
    EXPECT_EQ(ueberschrift("BestandListe"), u"7 Artikel"_s);
}

// Each word of a category makes a product one that is checked, wherever it stands; others are passed over.
TEST_F(Register, ElfWorteSagenWasGeprueftWird)
{
    const QStringList gruppen = {
        u"Herbizid"_s,           u"Fungizid"_s,        u"Insektizid"_s,  u"Akarizid"_s,
        u"Wachstumsregulator"_s, u"Wachstumsregler"_s, u"Beizmittel"_s,  u"Pflanzenwachstumsregulator"_s,
        u"Nematizid"_s,          u"Rodentizid"_s,      u"Molluskizid"_s, u"Netzmittel"_s,
        u"Saatbeizmittel"_s};
    for (const QString& gruppe : gruppen) {
        hof.fuehreAus(2024,
                      u"INSERT INTO LAGERJOURNAL (Datum, Artikel, Artikelart, LagerortKurzKu, Menge, Einheit) VALUES"
                      u" (#3/1/2024#, 'M"_s +
                          gruppe + u"', 'PFLANZENSCHUTZMITTEL', 'H1', 1, 'l')"_s); // as another program writes it
        fuelle({u"PFLANZENSCHUTZMITTEL (NAME, Gruppe, Regnr) VALUES ('M"_s + gruppe + u"', 'Mittel, "_s + gruppe +
                u"e', '1')"_s});
    }
    hof.bucht(2024, "03.12. | H1 | MHerbizid | 1 | Zukauf");
    oeffne();
    tippe("drpArtikel", u"Weizen"_s);
    tippe("Buchdatum", u"30.6.2024"_s);
    const QString text = pruefe();
    for (const QString& gruppe : gruppen.first(11))
        EXPECT_TRUE(text.contains(u" M"_s + gruppe + u" wurde in der Registerdatenbank nicht gefunden."_s))
            << gruppe.toStdString();
    EXPECT_EQ(text.count(u"VORSICHT"_s), 11) << text.toStdString();
    EXPECT_EQ(feld<DateCombo>("Buchdatum").Date(), QDate(2024, 12, 31));
}

TEST_F(Register, OhneMittelUndOhneStammdaten)
{
    oeffne();
    EXPECT_EQ(pruefe(), u"Keine abgelaufenen Pflanzenschutzmittel gefunden."_s);
    tippe("drpArtikelGruppe", u"Treib"_s);
    jet::engine().release();
    ASSERT_TRUE(QFile::remove(stammdaten()));
    EXPECT_EQ(pruefe(), u"Die für die Prüfung notwendige Stammdatenbank mit der Bezeichnung "_s + stammdaten() +
                            u" ist nicht vorhanden.\r\n\r\nDie Prüfung kann nicht durchgeführt werden."_s);
    EXPECT_EQ(feld<ComboBox>("drpArtikelGruppe").Text(), u"Treib- und Brennstoffe"_s); // untouched
}

TEST_F(Register, DerEditorBekommtDenTextUeberDieZwischenablage)
{
    const QTemporaryDir windows;
    QFile editor(windows.filePath(u"Notepad.exe"_s));
    ASSERT_TRUE(editor.open(QIODevice::WriteOnly));
    editor.write("#!/bin/sh\n: > \"$0.gestartet\"\n");
    editor.close();
    ASSERT_TRUE(editor.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    qputenv("windir", windows.path().toLocal8Bit());
    const auto zurueck = qScopeGuard([] { qunsetenv("windir"); });
    oeffne();
    EXPECT_EQ(pruefe(), QString()); // no message
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"Keine abgelaufenen Pflanzenschutzmittel gefunden."_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(editor.fileName() + u".gestartet"_s); }));
    ASSERT_TRUE(editor.setPermissions(QFile::ReadOwner)); // it cannot be started: the text comes all the same
    EXPECT_EQ(pruefe(), u"Keine abgelaufenen Pflanzenschutzmittel gefunden."_s);
}

// What cannot be looked up is told, and costs the other products nothing. What could not be filtered is not checked.
TEST_F(Register, EinFehlerGibtKeinemMittelEinenFalschenSatz)
{
    hof.fuehreAus(2024, u"INSERT INTO LAGERJOURNAL (Datum, Artikel, Artikelart, LagerortKurzKu, Menge, Einheit) VALUES"
                        u" (#3/1/2024#, 'Brennnessel d''Or', 'Pflanzenschutzmittel', 'H1', 1, 'l')"_s);
    oeffne();
    hof.meldungen().beantworteAlle(sys::Answer::Ignore);
    feld<QAction>("M_PflanzschPrufen").trigger();
    QStringList meldungen = hof.meldungen().abgeholt();
    EXPECT_EQ(meldungen.size(), 2);
    EXPECT_TRUE(meldungen.value(0).startsWith(bericht(3077))) << meldungen.value(0).toStdString();
    EXPECT_EQ(meldungen.value(1),
              u"\r\nDas Pflanzenschutzmittel Brennnessel d'Or konnte nicht überprüft werden."_s); // no all-clear

    const QString datei = hof.journaldatei(2024);
    jet::engine().release();
    tippe("drpArtikelGruppe", u"Treib"_s);
    ASSERT_TRUE(QFile::rename(datei, datei + u".weg"_s));
    for (const sys::Answer antwort : {sys::Answer::Abort, sys::Answer::Ignore}) {
        hof.meldungen().beantworteAlle(antwort);
        feld<QAction>("M_PflanzschPrufen").trigger();
        for (const QString& meldung : hof.meldungen().abgeholt())
            EXPECT_TRUE(meldung.startsWith(bericht(3024))) << meldung.toStdString(); // and nothing is checked
    }
    ASSERT_TRUE(QFile::rename(datei + u".weg"_s, datei));
}
