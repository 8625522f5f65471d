#pragma once

// What is wrong or doubtful in the loaded map, asked of the game's own rules.

#include "tools/remarks.h"

// Names missing states, states that no stone can reach, a transition but a caption that stands
// behind another one between the same states, a win mode that nobody can meet, and by family:
//   state machines: unknown nimbers, sinks that do not accept, ways in which the last mover may
//     not win;
//   pushdown machines: rules that do not parse or never match a card of the deck, a start at which
//     no card can be played, a deck too small for two hands;
//   turing machines: what `tape_check` finds.
// With `cyclic` a state machine is meant to have cycles: its nimbers and who moves last do not
// count. Starts a game without seats, so the piles change and random numbers are drawn.
void map_check(bool cyclic, remarks& found);
