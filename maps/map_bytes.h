#pragma once

// The loaded map as bytes in memory and back, every value exact, for what goes back to a map as it
// was: the editor's steps and a game on the map under work.
//
// The bytes are records one after the other, each a letter and its fields: the settings, then
// goals, stones, states and transitions, as the map holds them. Nimbers are left out, and a win
// mode is brought into its range, as the editor does when it shows one.

#include "base/str.h"
#include "base/types.h"

// Writes the loaded map into `capacity` bytes at `to` and returns how many it takes; when those are
// more than the capacity, what was written is of no use.
i64 map_bytes_write(char* to, i64 capacity);

// Makes the map of these bytes, written under the same family, the loaded one. Rules point into
// the bytes; it takes no memory on a map that was loaded before.
void map_bytes_read(str bytes);

// After `map_bytes_read`: copies the rules into the memory of the loaded map's text.
void map_rules_own();

// What an author changes in a map.
enum map_part_name : u8 {
    part_view,  // origin and scale
    part_deck,
    part_hand,
    part_tape,
    part_win,
    part_goal,
    part_stone,
    part_state_place,
    part_state_accepting,
    part_arrow,
    part_arrow_bend,
    part_arrow_label,
    part_arrow_rule,
};

struct map_part {
    map_part_name name;
    i64 index;  // of the goal, stone, state or arrow
};

// What the byte at `position` belongs to.
map_part map_part_at(str bytes, i64 position);
