#pragma once

#include "host/Installation.h"

#include <zablager/Lagerverwaltungsdaten.h>

#include <QDate>

#include <memory>

/// An object of the loadable library, its properties set as every host program does for a farm and a key
/// date. The farm's name and address are those of the settings in use, section "Betrieb NR", keys "Name" and
/// "Adresse"; missing ones are empty. Its messages go to standard error. \throws sys::FileError when the
/// library cannot be loaded.
std::unique_ptr<_Lagerverwaltungsdaten>
lagerverwaltungsdaten(const Installation& ort, const QString& Betriebsnummer, QDate Stichdatum);
