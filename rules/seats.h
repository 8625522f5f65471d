#pragma once

// The seats of a game, made as they are wanted.

#include "rules/game_state.h"

// Gives a seat the colour with that index, 0 to 5.
void seat_colour_set(player& seat, i64 index);

// Makes `players` hold exactly `player_count` seats; new ones are humans.
void seats_adjust();
