#pragma once

// What a human has clicked on the board, the stone in flight, and how stones stack on a state.

#include "base/types.h"
#include "maps/model.h"

inline constexpr i64 no_card = -1;

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

// The stone that flies to its new state after a move.
struct flight_record {
    u16 moving_stone = no_index;
    f32 moving_from[2] = {0, 0};      // world position at which it is drawn
    f32 moving_velocity[2] = {0, 0};  // world units per second
};

extern flight_record flight;

inline constexpr f64 stone_rise = 8;  // world units between stones on one state

// How many stones the board has drawn on each state in this frame.
inline constexpr i64 stone_stack_size = 65'536;
extern u16 stone_stack[stone_stack_size];
