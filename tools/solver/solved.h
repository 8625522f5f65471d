#pragma once

// What the solver says of a position, and its question for all families.

#include <vector>

#include "maps/card.h"
#include "shown/selection.h"
#include "tools/solver/retrograde.h"

// A whole turn of the seat to move: perhaps a card is drawn, then a move or none.
struct solved_turn {
    bool draws = false;
    i64 arc = -1;              // transition of the move, -1: the turn ends without one
    i64 card_index = no_card;  // of the card played, in the hand as it is after the draw
    verdict outcome = {};
};

struct solved_position {
    verdict best = {};  // of the seat to move
    // Of all positions that were looked at: how many there are of each `verdict_standing`, and the
    // turns of the longest way to win.
    i64 standings[3] = {};
    i64 longest = 0;
    std::vector<solved_turn> turns = {};
};

// Solves the running game from the position in which it is: nobody has won and no move is being
// shown. Nothing of the game changes. Are there more positions than there is memory for, then that
// is mostly known at once.
work_state state_position_solve(solved_position& solved);
work_state tape_position_solve(solved_position& solved);
work_state hand_position_solve(solved_position& solved);
work_state position_solve(solved_position& solved);

// Of the position with that verdict, without its turns.
solved_position solved_from(const verdict_cells& cells, const verdict& best);

// The best of the turns, the first one of equal ones; there must be one.
const solved_turn& best_turn(const solved_position& solved);
