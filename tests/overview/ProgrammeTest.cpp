// Other programs of the user: what opens the help, and the editor that shows a long text.

#include "core/TextImEditorZeigen.h"
#include "overview/Hilfe.h"
#include "tests/platform/system/Folder.h"
#include "tests/platform/system/Rekorder.h"
#include "tests/support/Testbetrieb.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

using namespace Qt::StringLiterals;

TEST(Programme, DieHilfeDerFamilieKommtVorDemHandbuchUndFehlendeWirdGenannt)
{
    Testbetrieb hof;
    const Folder ort;
    for (const QString& datei : {u"Lager.CHM"_s, u"share/doc/zablager/handbuch/buchen.html"_s})
        ort.write(datei, {});
    Rekorder oeffner(u"xdg-open"_s);
    zeigeHilfe(ort.path() + u"\\lager.chm"_s, ort.path(u"lib/zablager.so"_s), u"buchen"_s);
    EXPECT_EQ(oeffner.aufruf(), QStringList(ort.path(u"Lager.CHM"_s)));
    zeigeHilfe(u"/fehlt\\Lager.chm"_s, u"/fehlt/lib/zablager.so"_s, u"buchen"_s);
    EXPECT_TRUE(hof.meldungen().abgeholt().value(0).contains(
        u"\r\r/fehlt/Lager.chm\r/fehlt/share/doc/zablager/handbuch/buchen.html\r\r"_s));
}

TEST(Programme, DerEditorBekommtDenText)
{
    Testbetrieb hof;
    const Folder windows;
    const QString editor = windows.path(u"Notepad.exe"_s);
    windows.write(editor, "#!/bin/sh\ngrep Befund $1 > $0.neu && mv $0.neu $0.hat\n");
    QFile::setPermissions(editor, QFile::ReadOwner | QFile::ExeOwner);
    qputenv("windir", windows.path().toLocal8Bit());
    TextImEditorZeigen(u"Befund"_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"Befund"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(editor + u".hat"_s); }));
    QFile::setPermissions(editor, QFile::ReadOwner); // it cannot be started: the text comes all the same
    TextImEditorZeigen(u"Befund"_s);
    EXPECT_EQ(hof.meldungen().abgeholt(), QStringList(u"Befund"_s));
    qunsetenv("windir");
}
