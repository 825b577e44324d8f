#pragma once

#include "platform/jet/Recordset.h"

/// Whether a sibling program wrote the booking: only there may it be changed or deleted.
bool istFremdeBuchung(const jet::Recordset& zeile);
/// What is said about it. `nurDort`: the sentence of what is possible only there.
QString fremdeBuchung(const QString& nurDort);
