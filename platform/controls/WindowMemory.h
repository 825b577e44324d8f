#pragma once

#include <QString>

class QWidget;

/// Gives a window the size and place that the user's settings remember under section and key; nothing remembered leaves it
/// as it is.
void restoreWindow(QWidget& window, const QString& section, const QString& key);
/// Remembers them. \throws sys::FileError when the settings cannot be written.
void rememberWindow(const QWidget& window, const QString& section, const QString& key);
