#pragma once

#include "platform/jet/Database.h"

/// Gives a year file that has no settings of the delivery notes yet those that the user's settings preset, or
/// else a head of the farm's name and address. \throws jet::Error, sys::FileError; then nothing is added.
void ergaenzeLiefereinstellungen(jet::Database& journal);
