#pragma once

#include <QString>

/// Shows a longer text to the user: in the editor of the Windows directory where there is one, by way of the clipboard,
/// from where the user pastes it, since a program cannot press keys in another's window; elsewhere, and when the editor
/// cannot be started, as a message.
void TextImEditorZeigen(const QString& text);
