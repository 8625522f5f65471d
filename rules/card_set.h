#pragma once

// A set of card values: one bit for each of the 216 cards that differ.

#include <bit>

#include "base/types.h"
#include "maps/card.h"

inline constexpr i64 card_value_count = card_colour_count * card_shape_count * card_number_count;

// The place of a card among all card values.
inline i64 card_value(card c) {
    return (c.colour * card_shape_count + c.shape) * card_number_count + c.number - 1;
}

struct card_set {
    u64 words[4] = {};
};

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

constexpr void card_set_add(card_set& set, i64 value) {
    set.words[value / 64] |= u64{1} << (value % 64);
}

constexpr bool card_set_has(const card_set& set, i64 value) {
    return (set.words[value / 64] >> (value % 64) & 1) != 0;
}

constexpr i64 card_set_count(const card_set& set) {
    i64 count = 0;
    for (u64 word : set.words) {
        count += std::popcount(word);
    }
    return count;
}
