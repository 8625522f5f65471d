#pragma once

// One step of the game, run once per frame while the board is played on.

// Lets the running move go on, or takes the human's pending move when it is legal, the keys of the
// game (ctrl+z and ctrl+y, space, n, shift+N), and the computer seat's turn.
void turn_update();
