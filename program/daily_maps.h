#pragma once

// The map of the day, in each family one, which is the same everywhere on that day. The program
// writes it at its start; in a player's directory, where this is done, the lists have it as
// "today".

#include "base/str.h"
#include "base/types.h"

inline constexpr i64 no_day = -1;

// The day by this computer's clock, in days since 1970-01-01 of UTC; `no_day`, and the player is
// told, where that cannot be right.
i64 day_now();

// Where the family's map of the day is.
str daily_map_path(i64 family);

// Writes the maps of that day into the working directory, where others are. What cannot be written
// is told and leaves the map of another day, or none.
void daily_maps_write(i64 day);
