#pragma once

#include <QString>

/// The text on one line: each carriage return and each line feed becomes a blank (a Windows line end two of
/// them), the blanks at the ends go.
QString ZeilenumbruchEntfernen(const QString& text);
