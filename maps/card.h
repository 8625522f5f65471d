#pragma once

// One card, as maps name it and the rules play it: its three fields, the letters and digits by
// which rules, goals and tape actions name their values, and the order of all cards.

#include <cassert>

#include "base/types.h"
#include "maps/card.h"

struct card {
    u8 colour = 0;  // 0 to 5
    u8 shape = 0;   // 0 to 5
    u8 number = 1;  // 1 to 6

    bool operator==(const card&) const = default;
};

inline constexpr i64 no_card = -1;  // in place of a card's index in a hand

enum card_field : u8 { field_colour = 0, field_shape, field_number, card_field_count };

// A field's values run from `first_value` on; they are written as the symbols from `first_symbol`
// on.
struct card_field_info {
    u8 card::*value;
    u8 first_value;
    char first_symbol;
    i64 count;  // values that the field takes
};

inline constexpr i64 card_colour_count = 6;
inline constexpr i64 card_shape_count = 6;
inline constexpr i64 card_number_count = 6;

inline constexpr card_field_info card_fields[card_field_count] = {
    {&card::colour, 0, 'A', card_colour_count},
    {&card::shape, 0, 'a', card_shape_count},
    {&card::number, 1, '1', card_number_count},
};

// One field with one of its values: what a single symbol says of a card.
struct card_property {
    card_field field;
    u8 value;
};

struct symbol_properties {
    card_property of[256];  // by byte; the field is `card_field_count` where it names none
};

constexpr symbol_properties symbol_properties_make() {
    symbol_properties made = {};
    for (card_property& none : made.of) {
        none = {card_field_count, 0};
    }
    for (u8 field = 0; field < card_field_count; ++field) {
        const card_field_info& info = card_fields[field];
        for (i64 i = 0; i < info.count; ++i) {
            u8 value = static_cast<u8>(info.first_value + i);
            made.of[info.first_symbol + i] = {static_cast<card_field>(field), value};
        }
    }
    return made;
}

inline constexpr symbol_properties card_symbols = symbol_properties_make();

// The property that `symbol` names. False, with `property` as it was, when it names none.
constexpr bool card_property_read(char symbol, card_property& property) {
    const card_property& named = card_symbols.of[static_cast<u8>(symbol)];
    if (named.field == card_field_count) {
        return false;
    }
    property = named;
    return true;
}

constexpr bool card_has(card c, card_property property) {
    assert(property.field < card_field_count);
    return c.*card_fields[property.field].value == property.value;
}

// Gives the card the property.
constexpr void card_write(card& c, card_property property) {
    assert(property.field < card_field_count);
    c.*card_fields[property.field].value = property.value;
}

// The symbol of the card's value in the field. Files may hold values that the field does not take;
// they give the byte as far from the first symbol.
constexpr char card_symbol(card c, card_field field) {
    assert(field < card_field_count);
    const card_field_info& info = card_fields[field];
    return static_cast<char>(info.first_symbol + c.*info.value - info.first_value);
}

// The kinds of cards that a deck is made of: of each field its first so many values, in every
// combination.
struct card_kinds {
    i64 counts[card_field_count];
};

inline constexpr card_kinds all_card_kinds = {
    {card_colour_count, card_shape_count, card_number_count}};

constexpr i64 card_kinds_count(const card_kinds& kinds) {
    return kinds.counts[field_colour] * kinds.counts[field_shape] * kinds.counts[field_number];
}

inline constexpr i64 card_value_count = card_kinds_count(all_card_kinds);

// The card at a place, from 0, in the order of the kinds: the number runs innermost, the colour
// outermost.
constexpr card card_at(const card_kinds& kinds, i64 place) {
    assert(0 <= place && place < card_kinds_count(kinds));
    i64 shapes = kinds.counts[field_shape];
    i64 numbers = kinds.counts[field_number];
    return {static_cast<u8>(place / numbers / shapes), static_cast<u8>(place / numbers % shapes),
            static_cast<u8>(place % numbers + 1)};
}

// The place of a card, whose fields are in their ranges, among all cards: its value.
constexpr i64 card_value(card c) {
    assert(c.colour < card_colour_count && c.shape < card_shape_count);
    assert(1 <= c.number && c.number <= card_number_count);
    return (c.colour * card_shape_count + c.shape) * card_number_count + c.number - 1;
}

constexpr card card_of_value(i64 value) {
    return card_at(all_card_kinds, value);
}
