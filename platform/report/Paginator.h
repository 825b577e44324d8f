#pragma once

#include "platform/report/Document.h"
#include "platform/report/Form.h"
#include "platform/report/Job.h"

#include <functional>
#include <optional>

namespace report {

/// Told now and then how much is done; false ends the work.
using Progress = std::function<bool(qsizetype done, qsizetype all)>;

/// Sets a whole report in pages. No value: it was ended by `progress`.
/// \throws jet::Error, sys::FileError when the form, the formulas or the data are not as they must be.
std::optional<Document> setPages(const Job& job, const Progress& progress);

} // namespace report
