#pragma once

// A game shown again from its deal, at one act a second. The board's own game is brought from
// position to position; where its record stands, and what is kept of it, stays as it is.

#include "base/types.h"

struct replay_record {
    i64 position = 0;           // acts that are shown
    f64 time_left = 0;          // seconds until the next one
    bool paused = false;        // also at the end
    bool game_is_over = false;  // so that nobody has a hand to hide
};

extern replay_record replay;

// Shows the game on the board, or from a menu the one that F4 would go back into; says so when
// there is nothing to show.
void replay_begin();
// Whether it would.
bool replay_can_begin();
// The game stands on the board as it stood.
void replay_end();

// One step of it: space, the arrow keys, and the next act when its time has come.
void replay_update();
// Where it is, in a line below the upper band.
void replay_line_draw();
