#pragma once

#include "platform/report/Form.h"

#include <QMap>
#include <QString>

namespace report {

/// Sets the form's formulas as the control says: "Name = 'text'", "Name = {TABLE.Column}" or "Name = 12.5",
/// by index. Of two with one name the later index wins; a name that the form does not have is passed over.
/// \throws jet::Error InvalidArgument, naming the formula, when one is broken, whether or not the form has
/// it.
void setFormulas(Form& form, const QMap<int, QString>& formulas);

} // namespace report
