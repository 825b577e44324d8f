// Other programs of the user: what opens the help, and the editor that shows a long text.

#include "core/TextImEditorZeigen.h"
#include "overview/Hilfe.h"
#include "tests/support/Rekorder.h"
#include "tests/support/Testbetrieb.h"

#include <zablager/FileError.h>

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString lege(const QString& datei)
{
    QFile neue(datei);
    EXPECT_TRUE(QDir().mkpath(QFileInfo(datei).path()) && neue.open(QIODevice::WriteOnly));
    neue.write("#!/bin/sh\n: > \"$0.gestartet\"\n");
    EXPECT_TRUE(neue.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    return datei;
}

} // namespace

TEST(Programme, OeffnenDieHilfedateiSonstDasHandbuch)
{
    Testbetrieb hof;
    const QTemporaryDir ort;
    const auto zeige = [&] {
        zeigeHilfe(ort.path() + u"\\ZAB Hilfe\\Lager.chm"_s, ort.filePath(u"lib/zablager.so"_s), u"buchen"_s);
    };
    const QString handbuch = ort.filePath(u"share/doc/zablager/handbuch/buchen.html"_s);
    zeige();
    EXPECT_EQ(hof.meldungen().abgeholt(),
              QStringList{u"Die Hilfe wurde nicht gefunden. Erwartet wird sie in einer dieser beiden Dateien:\r\r"_s +
                          ort.filePath(u"ZAB Hilfe/Lager.chm"_s) + u'\r' + handbuch +
                          u"\r\rWird die Lagerverwaltung neu installiert, so ist auch das Handbuch wieder da."_s});
    for (const QString& datei : {handbuch, ort.filePath(u"zab hilfe/lager.CHM"_s)}) {
        lege(datei);
        Rekorder oeffner(u"xdg-open"_s);
        zeige();
        EXPECT_EQ(oeffner.aufruf(), QStringList{datei});
    }
    const Rekorder andere(u"firefox"_s);
    EXPECT_THROW(zeige(), sys::FileError);
}

TEST(Programme, DerEditorBekommtDenTextUeberDieZwischenablage)
{
    Testbetrieb hof;
    const QTemporaryDir windows;
    const QString editor = lege(windows.filePath(u"Notepad.exe"_s));
    qputenv("windir", windows.path().toLocal8Bit());
    TextImEditorZeigen(u"Befund"_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"Befund"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(editor + u".gestartet"_s); }));
    QFile::setPermissions(editor, QFile::ReadOwner); // it cannot be started: the text comes all the same
    TextImEditorZeigen(u"Befund"_s);
    EXPECT_EQ(hof.meldungen().abgeholt(), QStringList(u"Befund"_s));
    qunsetenv("windir");
}
