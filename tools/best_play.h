#pragma once

// Why a turn is the best one, and how the game goes on when nobody errs, in plain words.

#include <string>

#include "tools/solver/solved.h"

// "of 4 turns only this one wins", of the best of the turns; there must be one. Where the last
// mover of a state machine wins, it also tells the nimbers that are left.
std::string reason_words(const solved_position& solved);

// "Red: 5 to 4; Blue: 4 to 2; Red wins: ...": plays the running game on from the position that was
// solved, the best turn of every seat, until somebody has won; where nobody wins, one turn. As far
// as the work's limits reach, behind which it ends "and so on".
std::string best_play_words(const solved_position& solved);
