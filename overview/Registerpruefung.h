#pragma once

#include "platform/jet/Database.h"
#include "platform/jet/Recordset.h"

#include <QString>

#include <optional>

/// What the register of approved plant-protection products says of those in a stock list, as text for the
/// user: a line for each that is unknown to the family's product list or approved, a framed warning for each
/// that is not registered or has a last day of use. Products of other categories, wetting agents and the
/// like, are passed over.
///
/// `bestand`: the stock list's rows. `stamm`: the master data of the year. The last day of use is the
/// register's Aufbrauchsfrist, the end of the grace period of Regulation (EC) No 1107/2009, Article 46; it is
/// compared with the last day of the year. What the database refuses, as a name with an apostrophe, is
/// reported for each product by itself; no value when the user left there. \throws jet::Error where the
/// master data cannot be read.
std::optional<QString> registerpruefung(const jet::Recordset& bestand, jet::Database& stamm, int Jahr);
