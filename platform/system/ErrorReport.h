#pragma once

#include <functional>
#include <vector>

namespace sys {

/// How a procedure under the common error report ended.
enum class Outcome {
    Done,    ///< All steps were run, each to its end.
    Ignored, ///< All steps were run, but some have failed and been ignored.
    Left,    ///< The user left at a step that failed; the steps behind it were not run.
};

/// Runs a procedure, given as its steps in order, under the common error report.
///
/// A step that throws gets the pointer back to normal and shows the report: Abort leaves the procedure, Retry
/// runs the step again from its beginning, Ignore goes on with the next one. What must not be done half is
/// therefore one step.
Outcome underErrorReport(const std::vector<std::function<void()>>& steps);

} // namespace sys
