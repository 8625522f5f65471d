#pragma once

// What is doubtful in the loaded map once it is played.

#include "base/str.h"
#include "base/types.h"
#include "tools/remarks.h"

// Plays games by chance and names the first number of seats, of 2 to `seats`, with which a human
// can be stuck: unable to move, and unable to draw since deck and discard pile are empty; else a
// map that the first turn of a hard seat wins in more than a few percent of games. A pushdown map
// that names no tape is played with one that a turing machine has left. Of a map for one seat it
// finds nothing. `text` is the loaded map's. Draws random numbers.
void play_check(str text, i64 seats, remarks& found);
