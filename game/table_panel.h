#pragma once

// The top band's cards: deck and discard pile of pushdown games, the tape of turing games.

// Puts the squares of the deck and the discard pile at their places in the window.
void piles_place();

// Draws the current family's piles or tape.
void table_draw();
