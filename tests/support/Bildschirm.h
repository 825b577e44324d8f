#pragma once

#include <QWidget>

#include <functional>

/// Queues what the user does in the next modal window, which the statement behind this one opens: it returns
/// only when the window has closed. The window is active when `handlung` runs. One that is still open five
/// seconds after that, or that does not come at all, is a failure of the test and is closed.
void imNaechstenFenster(const std::function<void(QWidget& fenster)>& handlung);

/// The window that has the keys beside the main one: a list that is open, else a modal one; none: null.
QWidget* vorn();
QWidget& fokus(); ///< The field that has the keys. \throws std::runtime_error when none has.

/// Presses keys where the focus is: letters, and others in braces as Qt or a German keyboard names them:
/// "12,5{Tab}{Alt+Down}{Num+Del}{Strg+Umschalt+Eingabe}". What a key presses acts at once. \throws
/// std::runtime_error for a key that there is not, and where nobody has the focus.
void tippe(QStringView tasten);
