#pragma once

#include "platform/jet/Database.h"
#include "platform/jet/Recordset.h"

#include <QString>

/// What the register of approved plant-protection products says of those in a stock list, as text for the user: a line for
/// each that is unknown to the family's product list or approved, a framed warning for each that is not registered or has
/// a last day of use. Products of other categories, wetting agents and the like, are passed over.
///
/// `bestand`: the stock list's rows. `stamm`: the master data of the year. The last day of use is the register's
/// Aufbrauchsfrist, the end of the grace period of Regulation (EC) No 1107/2009, Article 46; it is compared with the last
/// day of the year. \throws jet::Error, as for a name with an apostrophe.
QString registerpruefung(const jet::Recordset& bestand, jet::Database& stamm, int Jahr);
