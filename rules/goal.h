#pragma once

// Whether a goal of a turing game is met and whether a seat has won.

#include "maps/model.h"

// The goal's count over the current tape; 0 for a measure that does not exist.
i64 goal_count(const goal& g);
// Whether the count meets the target; never for a comparison that does not exist.
bool goal_met(const goal& g);

// Whether the stones stand as the map's win mode asks; never for one that does not exist.
bool win_mode_met();

// Whether the current seat has won, tested right after its move: the family's own test (an empty
// hand, a met goal), then the map's win mode.
bool win_check();
