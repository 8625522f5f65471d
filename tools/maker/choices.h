#pragma once

// How rare good moves are in games that are played.

#include "tools/map_play.h"

struct choice_count {
    i64 offered = 0;
    i64 good = 0;
};

// To be told of every event of a game: counts what the seat that comes next can choose from. On a
// state machine a good move is one that makes the exclusive or of the nimbers 0, and places without
// one do not count; elsewhere one move in each place counts as good.
void choices_count(choice_count& count, const play_event& event);

// Moves on offer for each good one.
f64 choice_of(const choice_count& count);
