#pragma once

/// Lets assistive tools see the combos of this room as label and text: what Qt shows of a combo on Linux has
/// its text for a name. A second call has no effect.
void makeCombosAccessible();
