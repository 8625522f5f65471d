#pragma once

// The positions that commands are given: of a game that is a file, or of a map's first deal.

#include "tools/map_files.h"

struct given_position {
    named_map map;  // whose text the loaded map's rules point into; of a game the game's own text
    bool is_game = false;
};

// Brings the game to the position at the place: a game's as it stands, a map's with the seats and
// the seed that are asked for. Stones that can be moved, no winner, no move that is being shown.
// False, once it is named, when there is none.
bool position_take(const request& asked, const map_place& place, given_position& given);
