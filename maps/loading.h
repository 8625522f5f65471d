#pragma once

// Maps from files, within the memory there is: a map that would leave too little to play on is
// refused, and maps can be loaded one after the other for ever.

#include "base/str.h"
#include "base/types.h"

// Loads the map file at `path`, whose text stays in the persistent arena. A map under work that was
// changed is kept before it makes way (maps/map_work.h), and what is loaded then counts as the
// saved state of the file. A file that cannot be read or has no room is answered with one line on
// standard output and changes nothing.
void map_load(str path);

// Loads the map of a text that lies in the persistent arena behind `mark`, where it stays or from
// where it is moved; a changed map under work is kept here, too. False, with all behind the mark
// given up and nothing else changed, when the arena has no room for the map.
bool map_take(str text, i64 mark);
