#pragma once

// What a human might do next: on state and pushdown machines what a hard computer seat would do. On
// turing machines, where computers only guess, the first of the fewest moves that would win if
// nobody else moved meanwhile, and where none are found in time, the one that comes nearest to the
// goal.

#include "rules/acts.h"

// An act that is open for the current seat as a human; `act_wait`: there is none. Neither chance
// nor anything else changes, and the other seats' hands and goals are not looked at.
game_act advice_find();
