#pragma once

// The player set-up: how many seats, and for each its kind, colour and strength.

#include "rules/game_state.h"

void player_setup_frame();

// Gives a seat the colour with that index, 0 to 5.
void seat_colour_set(player& seat, i64 index);
