#pragma once

// A hint for the human whose turn it is: said in a line, and marked on the board for a while.

#include "rules/acts.h"

struct hint_record {
    game_act what;        // `act_wait`: none is shown
    i64 done_number = 0;  // of `last_done` when it was given; it is shown until more is done
    i32 frames_left = 0;
};

extern hint_record hint;

// Whether there is somebody to give one to on the board that is shown.
bool hints_are_due();
void hint_give();

// Draws the mark, over the board and its panels.
void hint_draw();
