#pragma once

#include <QStringList>

/// What another program finds in a spreadsheet file: first its sheet's name and the cell that rows and
/// columns before stay on view, then a line a row, cells joined by " | ". A number or day has its format in
/// brackets, bold has stars:
/// "*Datum* | *Artikel*", "2024-03-05 [dd.mm.yyyy] | Weizen". Formulas begin with "FORMEL".
QStringList tabellenblatt(const QString& datei);

/// Whether that program is there.
bool tabellenLeserDa();

#define NEEDS_OPENPYXL                                                                                       \
    if (!tabellenLeserDa()) GTEST_SKIP() << "python3-openpyxl is not installed"
