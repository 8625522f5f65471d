#pragma once

// What is wrong or doubtful in the actions and goals of the loaded turing machine.

#include <vector>

#include "maps/card.h"
#include "tools/remarks.h"

// Names actions that do nothing, letters in the place of a move that are none, and goals that no
// tape meets or that every tape meets. `in_play` are the cards that the game is played with, whose
// tape must be dealt; it is overwritten.
void tape_check(const std::vector<card>& in_play, remarks& found);
