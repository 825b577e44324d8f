#pragma once

#include "core/farm/umbenennung/Umbenennung.h"

#include <QStringList>

/// What becomes of the master data's rows, a sentence each; nothing where they do not know the name.
QStringList stammplan(const Umbenennung& umbenennung, const Umbenennungsort& ort);
/// Why rows of both names cannot become one: they are of other units or kinds.
QStringList stammhindernisse(const Umbenennung& umbenennung, const Umbenennungsort& ort);

/// Gives the row its new name; the row of a name that is there already is left, and the old one blocked, so
/// that nobody books on it again. For one farm alone the old row stays and a copy of it gets the new name.
/// In one commit. \throws jet::Error; nothing is changed then.
void schreibeStamm(const Umbenennung& umbenennung, const Umbenennungsort& ort);

/// Years whose register of plant-protection products knows the old name and not the new one: their check
/// will find the product no more. Registers are official and keep their names.
QStringList verlasseneRegister(const Umbenennung& umbenennung, const Umbenennungsort& ort);
