#pragma once

// What the map maker has copied, to be put again and again: a state, or an arrow's rule and bend.

#include "base/dyn_array.h"
#include "base/types.h"
#include "maps/model.h"

enum copied_kind : u8 { copied_nothing, copied_state, copied_arrow };

struct copied_record {
    copied_kind kind = copied_nothing;
    u8 accepting = 0;
    i16 bend = 0;
    dyn_array<char> rule = {};
};

extern copied_record copied;

// Copies what is selected; without a selection what was copied stays.
void selection_copy();

// Adds a state like the copied one there, in world units, and selects it.
void copied_state_put(point place);
// Makes the arrow between the selected states, which is added when there is none, like the copied
// one; without two states nothing happens.
void copied_arrow_put();
