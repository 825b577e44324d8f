#pragma once

#include "core/Modulzustand.h"
#include "tests/support/Testbetrieb.h"

/// The farm that screens are tested on: two years with seven movements, two storage places that are on offer,
/// goods with prices and business partners.
class Musterhof : public Testbetrieb {
public:
    Musterhof();
};
