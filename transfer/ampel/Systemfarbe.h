#pragma once

#include <QPalette>

/// Classic colour values of the desktop's own colours: the high bit, and a number.
constexpr quint32 FarbeArbeitsbereich = 0x8000000C;
constexpr quint32 FarbeSchaltflache = 0x8000000F;

/// The colour that a classic colour value means: 0x00BBGGRR, or with the high bit set the system colour of
/// the low byte's number, which the palette gives, so that it follows dark styles. An unknown number is the
/// colour of dialogs.
QColor farbeZu(quint32 wert, const QPalette& palette);
