#pragma once

// How the board shows stones: the one in flight, and how they stack on a state.

#include "base/types.h"
#include "maps/model.h"

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
