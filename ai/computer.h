#pragma once

// The move of a computer seat.

// Acts for the current seat, which must be a computer, by the player of the current family: a move,
// a drawn card with a new `think_timer`, a pass, or the end of the turn.
void computer_act();
