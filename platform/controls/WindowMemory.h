#pragma once

#include <QSize>
#include <QString>

class QWidget;

/// What a window may take of its display with its frame and title bar around it. That frame is known when the
/// window is shown; until then that of the window below counts.
QSize roomFor(const QWidget& window);

/// Gives a window the size and place that the user's settings remember under section and key; nothing
/// remembered leaves it as it is.
void restoreWindow(QWidget& window, const QString& section, const QString& key);
/// Remembers them. \throws sys::FileError when the settings cannot be written.
void rememberWindow(const QWidget& window, const QString& section, const QString& key);
