#pragma once

// Which way the ways of an outline lead.

#include "making/plan.h"

// Takes some ways away so that all still lead on and every place can be reached from the first one.
void ways_thin(board_plan& plan);

// Turns some of the ways round and doubles others, so that every place can be reached from every
// other one. Loops are left alone.
void ways_turn(board_plan& plan);

// Shows the board as in a mirror, by chance left and right, top and bottom.
void places_mirror(board_plan& plan);
