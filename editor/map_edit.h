#pragma once

// What the editor's keys and gestures share: the grid, the selected transition, and changes of the
// loaded map that touch more than one record.

#include "base/types.h"
#include "maps/model.h"

inline constexpr f64 grid_step = 32;  // world units

// The multiple of the step that is nearest.
f64 snapped(f64 value, f64 step);
// A length in map units; 0 on a map without a scale, on which nothing moves.
f64 map_units(f64 world);

// The selected transition, null when there is none.
transition* selected_arc();

// Adds a state there, in world units, and selects it; nothing when no index is left for it.
void state_add(point place, u8 accepting);

// Removes the stones on a state, all of them or only the first one found. The last stone moves
// into the place of a removed one.
void stones_remove(u16 state, bool only_one);

// Removes an existing state with every transition that touches it. The last state takes its index;
// transitions and stones follow.
void state_remove(u16 state);
