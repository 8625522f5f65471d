#include "maps/reader.h"

#include <cassert>

#include "base/message.h"
#include "maps/model.h"
#include "maps/nimbers.h"
#include "maps/records.h"
#include "maps/scan.h"

// Every line is tried for each keyword once, in a fixed order, at a position that moves on when one
// matches; then the rest of the line is dropped. Each line is passed over a bounded number of times
// and left behind, so a text of any bytes is read in time proportional to its size.

namespace {

record_value field_read(text_cursor& cursor, char kind) {
    switch (kind) {
        case field_real:
        case field_offset:
            return {.real = text_scan_real(cursor)};
        case field_quoted:
            cursor.position += 1;  // the opening quote
            return {.text = text_scan_until(cursor, '"')};
        default:
            return {.whole = text_scan_int(cursor)};
    }
}

// Reads the fields and the groups that are there into `values`; returns how many values those are.
// Between two fields one byte is skipped, whatever it is.
i64 fields_read(text_cursor& cursor, const record_form& form, record_value* values) {
    i64 count = 0;
    for (char kind : form.fields) {
        cursor.position += count > 0 ? 1 : 0;
        values[count] = field_read(cursor, kind);
        count += 1;
    }
    for (i64 group = 0; group < form.groups && text_has_prefix(cursor, " "); ++group) {
        for (char kind : form.group) {
            cursor.position += 1;
            values[count] = field_read(cursor, kind);
            count += 1;
        }
    }
    return count;
}

void take_view(const record_value* values, i64) {
    game_map.origin_x = values[0].real;
    game_map.origin_y = values[1].real;
    game_map.scale = values[2].real;
}

void take_win(const record_value* values, i64) {
    settings.win_mode = static_cast<u8>(values[0].whole);
}

void take_deck(const record_value* values, i64) {
    settings.deck_copies = values[0].whole;
    settings.deck_colours = values[1].whole;
    settings.deck_shapes = values[2].whole;
    settings.deck_numbers = values[3].whole;
}

void take_hand(const record_value* values, i64) {
    settings.hand_size = values[0].whole;
}

void take_tape(const record_value* values, i64) {
    settings.tape_length = values[0].whole;
}

card card_of(const record_value* values) {
    return {static_cast<u8>(values[0].whole), static_cast<u8>(values[1].whole),
            static_cast<u8>(values[2].whole)};
}

void take_goal(const record_value* values, i64 count) {
    goal g;
    g.measure = static_cast<u8>(values[0].whole);
    g.comparison = static_cast<u8>(values[1].whole);
    g.target = values[2].whole;
    if (count > 3) {
        g.card_a = card_of(values + 3);
    }
    if (count > 6) {
        g.card_b = card_of(values + 6);
    }
    dyn_array_push(goals, g);
}

void take_stone(const record_value* values, i64) {
    dyn_array_push(stones, static_cast<u16>(values[0].whole));
}

void take_accepting(const record_value* values, i64) {
    map_add_state(values[0].real, values[1].real, 1);
}

void take_plain(const record_value* values, i64) {
    map_add_state(values[0].real, values[1].real, 0);
}

void take_transition(const record_value* values, i64 count) {
    transition arc = {};
    arc.from = static_cast<u16>(values[0].whole);
    arc.to = static_cast<u16>(values[1].whole);
    arc.bend = static_cast<i16>(values[2].whole);
    if (count > 3) {
        arc.label_dx = static_cast<f32>(values[3].real);
        arc.label_dy = static_cast<f32>(values[4].real);
        arc.rule = values[5].text;
    }
    dyn_array_push(game_map.transitions, arc);
}

// By `record_kind`: what becomes of the values.
constexpr void (*takers[record_kind_count])(const record_value* values, i64 count) = {
    take_view,  take_win,       take_deck,  take_hand,  take_tape,       take_goal,
    take_stone, take_accepting, take_plain, take_plain, take_transition,
};

void line_read(text_cursor& cursor, record_taker take, void* to) {
    for (i64 kind = 0; kind < record_kind_count; ++kind) {
        const record_form& form = record_forms[kind];
        if (text_has_prefix(cursor, form.keyword)) {
            cursor.position += form.keyword.length;
            record_value values[record_field_limit];
            const i64 count = fields_read(cursor, form, values);
            take(to, static_cast<record_kind>(kind), values, count);
        }
    }
    text_scan_until(cursor, '\n');
    cursor.position += 1;
}

}  // namespace

void records_read(str text, record_taker take, void* to) {
    text_cursor cursor = {text.data, text.length, 0};
    while (cursor.position < cursor.size) {
        [[maybe_unused]] const i64 line_start = cursor.position;
        line_read(cursor, take, to);
        assert(cursor.position > line_start);
    }
}

void map_read(str text) {
    map_clear();
    records_read(
        text,
        [](void*, record_kind kind, const record_value* values, i64 count) {
            takers[kind](values, count);
        },
        nullptr);
    if (machine_kind == state_machine) {
        nimbers_compute();
    }
    fault_assert(map_fault);
}
