#pragma once

#include <QAction>
#include <QMenuBar>

/// Adds the menu "Hilfe": the help itself, and which version this is, where it was loaded from and under
/// which licence.
void ergaenzeHilfemenue(QMenuBar& leiste, QAction& hilfe);
