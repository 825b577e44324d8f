#pragma once

#include "platform/jet/Recordset.h"

/// Whether another program of the family wrote a booking, which is told with what must be done there.
bool istFremdeBuchung(const jet::Recordset& zeile, const QString& nurDort);
