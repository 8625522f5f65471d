#pragma once

// All placements of the loaded map's stones that moves can reach from where they stand, whatever
// cards ask, and the moves between them. Stones on one state are alike, so a placement is the
// sorted list of their states. Moves are those that the board offers a human: along the first
// transition between two states.

#include <vector>

#include "tools/solver/edges.h"
#include "tools/solver/key_pool.h"
#include "tools/solver/list.h"
#include "tools/solver/work.h"

struct placement_graph {
    key_pool pool = {};          // the sorted states, four to a word; 0 is where they stand
    edge_lists moves = {};       // by the transitions' order for each state, the states ascending
    std::vector<u32> arcs = {};  // by move: the transition
    std::vector<u8> meets = {};  // by placement: whether the win mode is met
};

// Finds them. With `until_met` none is left again on which the win mode is met after a move. What
// is too large for the memory is mostly known before a placement is looked at: stones move without
// each other, so the states that each can reach tell how many placements there are at least.
work_state placements_find(placement_graph& graph, bool until_met);

// The number of the placement on which the running game's stones stand, -1 when it is none of them.
i64 placement_of_stones(const placement_graph& graph);

i64 placements_bytes(const placement_graph& graph);
