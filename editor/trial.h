#pragma once

// Playing the map under work: out of the editor onto the board, and back from wherever the player
// went meanwhile, to the map, its history and its selection as they were.

#include "base/types.h"
#include "shown/selection.h"

// What comes back beside the map itself, which lies aside in `map_work`.
struct trial_record {
    selection_record selection = {};
    i64 entry = -1;  // the selected one of the family's catalogue
};

extern trial_record trial;

// F9: plays the map under work with the seats of the set-up, or goes back to it.
void trial_key_apply();
// Whether the key does that: not while a text is typed or the map list is open, for one.
bool trial_key_works();

// Gives up the map that is played, before another one comes under work.
void trial_give_up();
