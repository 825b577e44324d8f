#pragma once

#include "platform/jet/Recordset.h"

#include <QString>
#include <QTextStream>

#include <cstdio>

/// Forms in which programs read figures and rows; nothing here depends on German settings.

/// Writes a line as UTF-8. \throws sys::FileError when standard output does not take it.
void schreibe(std::FILE* ziel, const QString& text);

QString
zahlText(double zahl); ///< Decimal point, no exponent, as few digits as tell it from its neighbours: "0.3".

/// A header line, then one line per row, columns separated by tabs. Tab, line feed, carriage return and
/// backslash of a text are written \t \n \r \\; NULL is empty; truth values are -1 and 0, dates ISO.
void schreibeTabelle(QTextStream& ziel, jet::Recordset& zeilen);

/// One JSON object per row and line, columns in their order, dates as ISO texts.
void schreibeJson(QTextStream& ziel, jet::Recordset& zeilen);
