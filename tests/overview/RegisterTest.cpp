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
}

// What cannot be looked up is told, and costs the other products nothing. What could not be filtered is not checked.
TEST_F(Register, EinFehlerGibtKeinemMittelEinenFalschenSatz)
{
    for (const QString& name : {u"Brennnessel d''Or"_s, u"Gamma"_s})
        hof.fuehreAus(2024,
                      u"INSERT INTO LAGERJOURNAL (Datum, Artikel, Artikelart, LagerortKurzKu, Menge, Einheit) VALUES"
                      u" (#3/1/2024#, '"_s +
                          name + u"', 'Pflanzenschutzmittel', 'H1', 1, 'l')"_s);
    oeffne();
    hof.meldungen().beantworteAlle(sys::Answer::Ignore);
    feld<QAction>("M_PflanzschPrufen").trigger();
    QStringList meldungen = hof.meldungen().abgeholt();
    EXPECT_EQ(meldungen.size(), 2);
    EXPECT_TRUE(meldungen.value(0).startsWith(bericht(3077))) << meldungen.value(0).toStdString();
    EXPECT_TRUE(meldungen.value(1).contains(u"Gamma wurde in der Pflanzenschutzmitteldatenbank nicht gefunden."_s));

    const QString datei = hof.journaldatei(2024);
    jet::engine().release();
    tippe("drpArtikelGruppe", u"Treib"_s);
    ASSERT_TRUE(QFile::rename(datei, datei + u".weg"_s));
    hof.meldungen().beantworteAlle(sys::Answer::Abort);
    feld<QAction>("M_PflanzschPrufen").trigger();
    meldungen = hof.meldungen().abgeholt();
    EXPECT_TRUE(meldungen.value(0).startsWith(bericht(3024)));
    EXPECT_FALSE(meldungen.contains(u"Keine abgelaufenen Pflanzenschutzmittel gefunden."_s));
    ASSERT_TRUE(QFile::rename(datei + u".weg"_s, datei));
}
