#pragma once

// What a human has clicked on the board and in the hand.

#include "base/types.h"
#include "maps/card.h"
#include "maps/model.h"

// In play the pending move, in the editor what the keys act on. An index may outlive the map it was
// made on: one that the loaded map lacks counts as none, and counts again on a map that has it.
struct selection_record {
    u16 selected_state = no_index;       // where the stone is
    u16 target_state = no_index;         // where it goes
    u16 selected_transition = no_index;  // the first one between the two, found at every frame
    i64 selected_card = no_card;         // index into the current hand
};

extern selection_record selection;

// The two selected states as they count on the loaded map: each is `no_index` or exists.
u16 selection_source();
u16 selection_target();
