#pragma once

// The piles of cards. The last card of a pile is its top.

#include "base/dyn_array.h"
#include "base/types.h"
#include "maps/card.h"

// A pile on the table: its cards and the square in which the board shows it, in window pixels.
struct card_pile {
    dyn_array<card> cards = {};
    f64 x = 0;  // lower-left corner
    f64 y = 0;
    f64 size = 0;
};

extern card_pile deck;
extern card_pile discard_pile;  // the stack of a pushdown machine; rules read its top
extern dyn_array<card> tape;
extern i64 tape_head;  // index into the tape; may stand past its end after a shorter one is dealt

// A pile holds at most this many cards when it is dealt.
inline constexpr i64 pile_limit = 10'000;

// The top card, or the card (0, 0, 1) when the array is empty.
card card_array_top(const dyn_array<card>& cards);
// Removes one card, keeping the order; out of range: nothing.
void card_array_remove_at(dyn_array<card>& cards, i64 index);
// The top card, which is removed, or the card (0, 0, 1) when the array is empty.
card card_take_top(dyn_array<card>& cards);

// How many colours, shapes or numbers the map's deck settings name, bounded by those cards have.
i64 deck_colours_bounded();
i64 deck_shapes_bounded();
i64 deck_numbers_bounded();
