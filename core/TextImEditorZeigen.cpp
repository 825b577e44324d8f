#include "core/TextImEditorZeigen.h"

#include "platform/system/Clipboard.h"
#include "platform/system/Files.h"
#include "platform/system/Messages.h"
#include "platform/system/Programs.h"
#include "platform/system/WindowsDirectory.h"

#include <zablager/FileError.h>

#include <QDir>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

void TextImEditorZeigen(const QString& text)
{
    const QString editor = sys::WindowsVerzeichnis() + u"\\Notepad.exe"_s;
    if (!sys::Exist(editor)) return sys::critical(text);
    sys::setClipboardText(text);
    QTemporaryFile datei(QDir::tempPath() + u"/Lagerverwaltung-XXXXXX.txt"_s);
    const QByteArray utf8 = text.toUtf8();
    if (!datei.open() || datei.write(utf8) != utf8.size() || !datei.flush()) return sys::critical(text);
    try {
        sys::startProgram(editor, datei.fileName());
        datei.setAutoRemove(false); // the editor reads it in its own time
    } catch (const sys::FileError&) {
        sys::critical(text); // what was found out must not be lost to an editor
    }
}
