#pragma once

// Telling the player which step was taken back or done again.

#include "base/str.h"
#include "base/types.h"

struct map_counts {
    i64 states;
    i64 transitions;
    i64 stones;
    i64 goals;
};

// Of the loaded map.
map_counts map_counts_now();

// After a step was crossed, forward or back: `before` the map had those counts, now it consists of
// these bytes, and the step has changed it from the byte at `place` on. With `other_map` another
// map came instead.
void step_tell(bool forward, bool other_map, const map_counts& before, str map, i64 place);
