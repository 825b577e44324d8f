#pragma once

#include <QString>

class QIcon;

/// Shows a text that would not fit into a message box: it scrolls, can be copied and saved ("Speichern ...").
void showLongMessage(const QString& text, const QIcon& icon);

/// Whether a text is for that.
bool isLongMessage(const QString& text);
