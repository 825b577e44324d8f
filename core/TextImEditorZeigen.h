#pragma once

#include <QString>

/// Shows a longer text to the user: in the editor of the Windows directory where there is one, as a temporary
/// file, since a program cannot press the key that pastes in another's window, and on the clipboard;
/// elsewhere, and when the editor cannot be started, as a message.
void TextImEditorZeigen(const QString& text);
