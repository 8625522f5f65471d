#pragma once

// Seats, what they did, whose turn it is and who has won, in words, which live in the frame arena.

#include "base/str.h"
#include "rules/acts.h"
#include "rules/game_state.h"

// "Red": seats are told by their colours.
str seat_name(const player& seat);

// What an action of a turing machine writes, and where the head goes then; empty when it does
// nothing.
str action_words(str action);

// A move that is open to the current seat: "2 to 5 with red circle 1".
str move_words(const game_act& move);

// The last act of the running game: "Red drew a card, then 2 to 5 with blue star 3"; after a move
// that all but won, what it lacks. Empty at the start.
str done_sentence();

// How a game on the loaded map is won.
str aim_sentence();

// Who has won and by what; somebody must have won.
str win_sentence();
