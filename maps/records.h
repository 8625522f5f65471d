#pragma once

// The lines of a map's text: one record a line, a keyword and its fields, each field separated from
// the one before by exactly one byte. Lines that start with anything else are ignored. Reader,
// writer and checker all follow this table, as does docs/map-format.md.

#include "base/str.h"
#include "maps/model.h"

enum record_kind : u8 {
    record_view,
    record_win,
    record_deck,
    record_hand,
    record_tape,
    record_goal,
    record_stone,
    record_accepting,
    record_plain,
    record_plain_too,  // reads as `record_plain`, is not written
    record_transition,
    record_kind_count,
};

// What a field holds.
enum field_kind : char {
    field_whole = 'i',
    field_byte = 'b',   // a whole number whose low 8 bits count, written as a signed one
    field_index = 'x',  // likewise, 16 bits
    field_real = 'r',
    field_offset = 'o',  // a real that is kept as f32
    field_quoted = 'q',  // a text in quotes
};

struct record_form {
    str keyword;   // with the blank that ends it
    str fields;    // a `field_kind` each
    str group;     // fields that may follow them
    i64 groups;    // that often
    u8 families;   // that the line means something to, as bits by `machine_kind`
    u8 needed_by;  // families whose maps should not leave it out
};

inline constexpr u8 of_state = 1 << state_machine;
inline constexpr u8 of_pushdown = 1 << pushdown_machine;
inline constexpr u8 of_turing = 1 << turing_machine;
inline constexpr u8 of_cards = of_pushdown | of_turing;
inline constexpr u8 of_all = of_state | of_cards;

// By `record_kind`, in the order in which a reader tries them at every line.
// clang-format off
inline constexpr record_form record_forms[record_kind_count] = {
    {"map ",   "rrr",  "",    0, of_all,      of_all},       // X Y of the origin, SCALE
    {"win ",   "b",    "",    0, of_all,      of_all},       // win mode
    {"deck ",  "iiii", "",    0, of_cards,    of_cards},     // COPIES COLOURS SHAPES NUMBERS
    {"hand ",  "i",    "",    0, of_pushdown, of_pushdown},  // cards in a hand
    {"tape ",  "i",    "",    0, of_cards,    of_turing},    // cards on the tape
    {"goal ",  "bbi",  "bbb", 2, of_turing,   0},            // MEASURE COMPARISON TARGET, cards
    {"stone ", "x",    "",    0, of_all,      0},            // state
    {"* ",     "rr",   "",    0, of_all,      0},            // X Y of an accepting state
    {". ",     "rr",   "",    0, of_all,      0},            // X Y of any other
    {"$ ",     "rr",   "",    0, of_all,      0},
    {"=> ",    "xxi",  "ooq", 1, of_all,      0},            // FROM TO BEND, label's offset, rule
};
// clang-format on

inline constexpr i64 record_field_limit = 9;

// A field's value: the member that its kind asks for.
struct record_value {
    i64 whole = 0;
    f64 real = 0;
    str text = {};
};
