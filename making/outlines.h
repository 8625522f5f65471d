#pragma once

// The outlines of boards: places in columns, joined to those of the same and of the next column
// alone, so that no two ways cross.

#include "making/plan.h"

enum outline_value : i64 {
    outline_ring = 0,
    outline_layers,
    outline_tree,
    outline_grid,
    outline_gate,
    outline_counter,
    outline_count,
};

// What a player calls it, such as "gate".
str outline_name(i64 outline);

// Whether so many places, `plan_least_places` to `plan_place_limit`, can be drawn in it.
bool outline_takes(i64 outline, i64 places);

// Draws it by chance. Every way leads on, to a place with a higher number, and every place but the
// first has one that leads there.
void outline_draw(board_plan& plan, i64 outline, i64 places);
