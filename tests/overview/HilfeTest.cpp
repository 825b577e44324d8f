#include "overview/Hilfe.h"
#include "tests/support/Print.h"
#include "tests/support/Rekorder.h"
#include "tests/support/Testbetrieb.h"

#include <zablager/FileError.h>

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void schreibe(const QString& datei)
{
    ASSERT_TRUE(QDir().mkpath(QFileInfo(datei).path()));
    ASSERT_TRUE(QFile(datei).open(QIODevice::WriteOnly));
}

} // namespace

TEST(Hilfe, OeffnetDieHilfedateiSonstDasHandbuchSonstKeins)
{
    Testbetrieb hof;
    Rekorder oeffner(u"xdg-open"_s);
    const QTemporaryDir ort;
    const QString Hilfedatei = ort.path() + u"\\ZAB Hilfe\\Lagerverwaltung.chm"_s;
    const QString bibliothek = ort.filePath(u"lib/zablager.so"_s);
    const QString liegt = ort.filePath(u"zab hilfe/lagerverwaltung.CHM"_s);
    const QString handbuch = ort.filePath(u"share/doc/zablager/handbuch/hauptbildschirm.html"_s);

    zeigeHilfe(Hilfedatei, bibliothek);
    EXPECT_EQ(hof.meldungen().abgeholt(),
              QStringList{u"Die Hilfe wurde nicht gefunden. Erwartet wird sie in einer dieser beiden Dateien:\r\r"_s +
                          ort.filePath(u"ZAB Hilfe/Lagerverwaltung.chm"_s) + u'\r' + handbuch +
                          u"\r\rWird die Lagerverwaltung neu installiert, so ist auch das Handbuch wieder da."_s});

    schreibe(handbuch);
    zeigeHilfe(Hilfedatei, bibliothek);
    EXPECT_EQ(oeffner.aufruf(), QStringList{handbuch});

    schreibe(liegt);
    zeigeHilfe(Hilfedatei, bibliothek);
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
        zeigeHilfe({}, ort.filePath(u"lib/zablager.so"_s));
    } catch (const sys::FileError& fehler) {
        text = fehler.text();
    }
    EXPECT_EQ(text, u"Es gibt auf diesem Rechner kein Programm, das die Datei '"_s + handbuch + u"' öffnet."_s);
}
