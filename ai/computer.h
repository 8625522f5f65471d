#pragma once

// The computer seats.
//
// On state machines a move after which the exclusive or of the nimbers of all stones' states is 0
// wins against any answer. The strengths differ in how readily they take one: easy only without
// another move, normal in half of the cases, hard always. On pushdown machines see
// `ai/pushdown_player.h`. On turing machines every strength makes any move.

#include "rules/acts.h"

// What the current seat, which must be a computer, does next, by the player of the current family:
// a move; on a pushdown machine a draw, or the end of the turn; on a turing machine a pass; on a
// state machine on which no stone can be moved any more nothing. Only chance is asked, nothing else
// changes.
game_act computer_decide();

// Decides and does it.
void computer_act();
