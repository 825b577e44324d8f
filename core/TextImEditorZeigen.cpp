#include "core/TextImEditorZeigen.h"

#include "platform/system/Clipboard.h"
#include "platform/system/Files.h"
#include "platform/system/Messages.h"
#include "platform/system/Programs.h"
#include "platform/system/WindowsDirectory.h"

#include <zablager/FileError.h>

using namespace Qt::StringLiterals;

void TextImEditorZeigen(const QString& text)
{
    const QString editor = sys::WindowsVerzeichnis() + u"\\Notepad.exe"_s;
    if (!sys::Exist(editor)) return sys::critical(text);
    sys::setClipboardText(text);
    try {
        sys::startProgram(editor);
    } catch (const sys::FileError&) {
        sys::critical(text); // what was found out must not be lost to an editor
    }
}
