#pragma once

// The checkers of everything that the rooms up to this one remember. They take time in proportion
// to the map and the cards, and change nothing but, for a fault's words, the frame arena.

#include "base/str.h"

// What is broken whatever the screen, empty when nothing is: an array that is not inside its arena
// or shares storage with another, a card that does not exist, a seat's field or a setting of the
// turn out of its range, a map that `map_fault` complains of. What may be stale or wild by design
// does not count: selected indices, the stone in flight, the tape's head beyond a shorter tape,
// the seat to move while no game is shown.
str state_fault();

// The same for a running game, which has a seat to move and perhaps a winner among its seats.
str game_fault();

// A fingerprint of all that a game consists of: positions of the same game with different ones
// differ. What only times or shows it, and whether the cover stands, does not count.
u64 game_fingerprint();
