#pragma once

// Changes of the loaded map that touch more than one record.

#include "base/types.h"

// Removes the stones on a state, all of them or only the first one found. The last stone moves
// into the place of a removed one.
void stones_remove(u16 state, bool only_one);

// Removes an existing state with every transition that touches it. The last state takes its index;
// transitions and stones follow.
void state_remove(u16 state);
