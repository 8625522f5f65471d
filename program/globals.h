#pragma once

// All that the game remembers.

#include "base/types.h"

// Sets every global of the game to its start value. Start-up begins with it, and so does every
// test. It forgets the arenas without freeing them.
void globals_reset();

// A fingerprint, never 0, of every global and of all that lies in the persistent arena, but for
// what only counts the time until something is due (program/rest.h). Padding counts: a record that
// is written whole in every frame has none.
u64 globals_fingerprint();
