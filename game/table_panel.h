#pragma once

// The top band's cards: deck and discard pile of pushdown games with the end-of-turn sign, the
// tape of turing games.

#include "render/view.h"
#include "rules/cards.h"

// Puts the squares of the deck and the discard pile at their places in the window.
void piles_place();

// Where a pile is drawn, and the sign that ends a turn; whether the pointer is over that.
box pile_box(const card_pile& pile);
box end_turn_box();
bool end_turn_is_at(const pointer& mouse);

// Draws the current family's piles or tape.
void table_draw();

// While the hand is shown: lights the deck up under the pointer as long as a card may be drawn, and
// draws one on a click.
void deck_frame(const pointer& mouse);

// After a card was drawn: the sign that ends the turn, and a click on it.
void end_turn_frame(const pointer& mouse);
