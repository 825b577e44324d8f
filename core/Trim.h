#pragma once

#include <QString>

/// The text without the blanks at its ends, as the database's TRIM: tabs, line breaks and other white space stay.
QString Trim(const QString& text);
