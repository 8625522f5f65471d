#pragma once

// Whether a made map is good, and how hard it is.

#include "making/maker.h"
#include "tools/map_code.h"

// What was measured of a map, as far as it was looked at.
struct judgement {
    const char* fault = nullptr;  // why it is no good; null when it is
    i64 states = 0;
    i64 turns = 0;       // median of the games between equals
    i64 most_share = 0;  // percent of them that the seat won which won the most
    i64 hard_share =
        0;           // percent that hard seats win against easy ones; 0 where all play by chance
    f64 choice = 0;  // moves on offer for each good one
    i64 level = 0;   // 1 to `map_level_limit`, that follows from states, turns and choice
};

// Judges the map for so many seats, with what is cheap first. Needs a frame of the board
// (tools/board_frame). The loaded map and the game's chance change.
judgement map_judge(const named_map& map, i64 seats);

// Makes the candidate's map and judges it; `map` is the candidate's unless it could not be drawn.
judgement candidate_judge(const map_wish& wish, i64 seats, named_map& map);
