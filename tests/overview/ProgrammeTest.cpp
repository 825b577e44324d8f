// Other programs of the user: what opens the help, and the editor that shows a long text.

#include "core/TextImEditorZeigen.h"
#include "overview/Hilfe.h"
#include "tests/platform/system/Rekorder.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTest>

using namespace Qt::StringLiterals;

TEST(Programme, DieHilfeDerFamilieKommtVorDemHandbuchUndFehlendeWirdGenannt)
{
    Testbetrieb hof;
    const QDir ort(hof.ort().verzeichnis());
    const QString hilfe = ort.filePath(u"Lager.CHM"_s),
                  handbuch = ort.filePath(u"share/doc/zablager/handbuch/buchen.html"_s);
    ASSERT_TRUE(ort.mkpath(u"share/doc/zablager/handbuch"_s) && ort.mkpath(u"lib"_s));
    for (const QString& datei : {hilfe, handbuch})
        ASSERT_TRUE(QFile(datei).open(QIODevice::WriteOnly));
    {
        Rekorder oeffner(u"xdg-open"_s);
        zeigeHilfe(ort.path() + u"\\lager.chm"_s, ort.filePath(u"lib/zablager.so"_s), u"buchen"_s);
        EXPECT_EQ(oeffner.aufruf(), QStringList{hilfe});
    }
    zeigeHilfe(u"/fehlt\\Lager.chm"_s, u"/fehlt/lib/zablager.so"_s, u"buchen"_s);
    EXPECT_EQ(hof.meldungen().abgeholt(),
              QStringList{u"Die Hilfe wurde nicht gefunden. Erwartet wird sie in einer dieser beiden Dateien:\r\r"_s
                          u"/fehlt/Lager.chm\r/fehlt/share/doc/zablager/handbuch/buchen.html\r\r"_s
                          u"Wird die Lagerverwaltung neu installiert, so ist auch das Handbuch wieder da."_s});
}

TEST(Programme, DerEditorBekommtDenText)
{
    Testbetrieb hof;
    const QTemporaryDir windows;
    const QString editor = windows.filePath(u"Notepad.exe"_s);
    QFile datei(editor);
    ASSERT_TRUE(datei.open(QIODevice::WriteOnly) &&
                datei.write("#!/bin/sh\ngrep Befund $1 > $0.neu && mv $0.neu $0.hat\n") > 0);
    ASSERT_TRUE(datei.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    datei.close();
    qputenv("windir", windows.path().toLocal8Bit());
    TextImEditorZeigen(u"Befund"_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"Befund"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(editor + u".hat"_s); }));
    QFile::setPermissions(editor, QFile::ReadOwner); // it cannot be started: the text comes all the same
    TextImEditorZeigen(u"Befund"_s);
    EXPECT_EQ(hof.meldungen().abgeholt(), QStringList(u"Befund"_s));
    qunsetenv("windir");
}
