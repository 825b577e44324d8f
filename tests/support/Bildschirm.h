#pragma once

#include <QWidget>

#include <functional>

/// Queues what the user does in the next modal window, which the statement behind this one opens: it returns only when
/// the window has closed. The window is active when `handlung` runs. One that is still open five seconds after that, or
/// that does not come at all, is a failure of the test and is closed.
void imNaechstenFenster(const std::function<void(QWidget& fenster)>& handlung);

/// Presses keys where the focus is: letters, and others as Qt names them, in braces: "12,5{Tab}{Alt+Down}{Num+Del}".
void tippe(QStringView tasten);
