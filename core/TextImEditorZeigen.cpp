#include "core/TextImEditorZeigen.h"

#include "platform/system/Clipboard.h"
#include "platform/system/Files.h"
#include "platform/system/Messages.h"
#include "platform/system/Programs.h"
#include "platform/system/WindowsDirectory.h"

using namespace Qt::StringLiterals;

void TextImEditorZeigen(const QString& text)
{
    const QString editor = sys::WindowsVerzeichnis() + u"\\Notepad.exe"_s;
    if (!sys::Exist(editor)) return sys::critical(text);
    sys::setClipboardText(text);
    sys::startProgram(editor);
}
