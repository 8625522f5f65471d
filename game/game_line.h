#pragma once

// The line that tells the game where no picture is: what the last seat did, why a click did
// nothing, whose turn it is and what is asked of it, who has won and by what.

#include "base/types.h"

struct game_line_record {
    i64 done_number = -1;   // of `last_done` when the stones were looked at
    bool is_stuck = false;  // none of them could be moved
};

extern game_line_record game_line;

// Lets it stand where the player looks, with the map's name; to be called once the board has had
// its clicks.
void game_line_tell();
