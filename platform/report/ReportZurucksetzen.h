#pragma once

#include "platform/report/PrintControl.h"

namespace report {

/// Empties form, selection, printer and the indices 0 to 100 of formulas, data files and sort fields, so that
/// no setting of an earlier print remains. Window title, destination and copies stay: screens set them once.
void ReportZurucksetzen(PrintControl& control);

} // namespace report
