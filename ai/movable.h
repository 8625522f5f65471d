#pragma once

// The moves that are open to a computer seat before cards are asked for: transitions whose source
// state holds a stone.
//
// A decision keeps no list of its candidate moves: it walks them once to count or score them and a
// second time to pick one, so that no map is too large for it.

#include "base/arena.h"
#include "base/types.h"
#include "maps/model.h"

// The first stone on every state and how many stand there.
struct stone_table {
    u16* first;  // `no_index` where none stands
    i64* count;
};

// One value for each state that an index can name, in the frame arena.
template <typename element>
element* per_state(element start) {
    i64 bytes = named_state_count() * static_cast<i64>(sizeof(element));
    auto* values = static_cast<element*>(arena_alloc(arena_frame, bytes));
    for (i64 s = 0; s < named_state_count(); ++s) {
        values[s] = start;
    }
    return values;
}

// In the frame arena.
stone_table stones_locate();

// Calls visit(arc, stone) for every transition whose source state holds a stone.
template <typename visitor>
void movable_visit(const stone_table& table, visitor visit) {
    for (const transition& arc : game_map.transitions) {
        if (transition_exists(arc) && table.first[arc.from] != no_index) {
            visit(arc, table.first[arc.from]);
        }
    }
}
