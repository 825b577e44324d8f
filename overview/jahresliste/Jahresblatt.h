#pragma once

#include "core/farm/jahresliste/Jahresliste.h"
#include "overview/Listenpapier.h"
#include "platform/family/GridExport.h"

/// The list as a sheet: the lines kind by kind, below each kind the sum of its values, the whole last. Values
/// and sums are formulas, so that an adviser can set another price.
SheetRows jahresblatt(const std::vector<Jahreszeile>& zeilen);

/// The same for the printer, through a form that a farm can change.
Listenpapier::Auftrag jahrespapier(const std::vector<Jahreszeile>& zeilen, int jahr);

/// "3 Zeilen ohne Preis"; empty: all have one.
QString ohnePreisText(const Jahressumme& summe);
