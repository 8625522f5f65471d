#pragma once

// Makes a map out of a number, the same one everywhere: all of it is chance from that number, in
// whole numbers. Whether the map is good is not judged here.

#include "base/str.h"
#include "base/text_builder.h"
#include "base/types.h"

inline constexpr i64 map_level_limit = 5;

// What is wanted of a map; 0 leaves a count to the level and to chance.
struct map_wish {
    i64 family = 0;
    i64 level = 3;   // 1 to `map_level_limit`
    i64 states = 0;  // `plan_least_places` to `plan_place_limit`
    i64 stones = 0;  // 1 to `made_stone_limit`
    u64 number = 1;  // the map's own
};

inline constexpr i64 made_stone_limit = 6;

// Appends the map's text, in the form in which maps are written, and its name to `name`: what it
// is, its level and its number, such as "gate_3_41". False, with nothing appended, when its texts
// have no room on the board. Both builders must live in the frame arena. The loaded map and the
// game's chance stay as they are.
bool map_make(const map_wish& wish, text_builder& text, text_builder& name);
