#pragma once

#include <QString>

/// Opens what there is to read about a window, with the user's program: the help file where the installation
/// has one, else that page of the handbook that lies beside the library. With neither, a message says where
/// they should lie. \throws sys::FileError when the desktop has no means to open files.
void zeigeHilfe(const QString& Hilfedatei, const QString& bibliothek, const QString& seite);
