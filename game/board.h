#pragma once

// The board: the map in world space, the selection of states with the mouse, the stone in flight.

#include "render/view.h"

// Sets `selected_transition` to the first transition between the selected states, or to none.
void board_find_transition();

// shift+N shows the nimbers of the states, or hides them.
void nimbers_key_apply();

// Takes the frame's clicks and draws transitions, states and stones.
void board_frame(const pointer& mouse);
