#pragma once

// The top band's cards: deck and discard pile of pushdown games with the end-of-turn sign, the
// tape of turing games.

#include "render/view.h"

// Puts the squares of the deck and the discard pile at their places in the window.
void piles_place();

// Draws the current family's piles or tape.
void table_draw();

// While the hand is shown: lights the deck up under the pointer as long as a card may be drawn, and
// draws one on a click.
void deck_frame(const pointer& mouse);

// After a card was drawn: the sign that ends the turn, and a click on it.
void end_turn_frame(const pointer& mouse);
