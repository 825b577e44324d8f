#pragma once

#include "platform/jet/value/Arguments.h"

#include <span>

namespace jet {

/// What statements do with values beside calling functions: operators and conversions that a store may not
/// have.
struct Operator {
    const char* name;
    int arguments;
    Computation computation;
};

std::span<const Operator> operators();

} // namespace jet
