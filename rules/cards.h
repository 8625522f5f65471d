#pragma once

// The cards in play: the piles, the deck that the map's settings describe, and sets of card values.
// The last card of a pile is its top.

#include <bit>

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

// The kinds that the map's deck settings name, bounded by those that cards have.
card_kinds deck_kinds();

// Shuffles the deck in place.
// Source: R. Durstenfeld, "Algorithm 235: Random permutation" (1964), the Fisher-Yates shuffle.
void deck_shuffle();

// When the deck is empty, the discard pile becomes the deck and is shuffled.
void deck_refill();

// A set of card values: one bit for each of the 216 cards that differ, at its `card_value`.
struct card_set {
    u64 words[4] = {};
};

inline constexpr card_set all_cards = {{~u64{0}, ~u64{0}, ~u64{0}, (u64{1} << 24) - 1}};
static_assert(card_value_count == 3 * 64 + 24);

// All card values that have it.
const card_set& cards_having(card_property property);

constexpr card_set operator&(const card_set& a, const card_set& b) {
    return {a.words[0] & b.words[0], a.words[1] & b.words[1], a.words[2] & b.words[2],
            a.words[3] & b.words[3]};
}

constexpr card_set operator|(const card_set& a, const card_set& b) {
    return {a.words[0] | b.words[0], a.words[1] | b.words[1], a.words[2] | b.words[2],
            a.words[3] | b.words[3]};
}

constexpr card_set operator^(const card_set& a, const card_set& b) {
    return {a.words[0] ^ b.words[0], a.words[1] ^ b.words[1], a.words[2] ^ b.words[2],
            a.words[3] ^ b.words[3]};
}

constexpr void card_set_add(card_set& set, card c) {
    i64 value = card_value(c);
    set.words[value / 64] |= u64{1} << (value % 64);
}

constexpr bool card_set_has(const card_set& set, card c) {
    i64 value = card_value(c);
    return (set.words[value / 64] >> (value % 64) & 1) != 0;
}

constexpr i64 card_set_count(const card_set& set) {
    i64 count = 0;
    for (u64 word : set.words) {
        count += std::popcount(word);
    }
    return count;
}
