#pragma once

#include "platform/report/Form.h"

namespace report {

/// Reads a report form. \throws sys::FileError when there is no such file or it cannot be read; jet::Error
/// InvalidArgument with file and line when it is no form.
Form readForm(const QString& file);

} // namespace report
