#include "maps/reader.h"

#include <algorithm>
#include <cassert>
#include <cstring>

#include "base/message.h"
#include "base/tidings.h"
#include "maps/file_text.h"
#include "maps/map_work.h"
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

void read_line(text_cursor& cursor) {
    for (i64 kind = 0; kind < record_kind_count; ++kind) {
        const record_form& form = record_forms[kind];
        if (text_has_prefix(cursor, form.keyword)) {
            cursor.position += form.keyword.length;
            record_value values[record_field_limit];
            const i64 count = fields_read(cursor, form, values);
            takers[kind](values, count);
        }
    }
    text_scan_until(cursor, '\n');
    cursor.position += 1;
}

// While lists grow, what they leave behind included, the records of a text take at most that many
// times its bytes.
constexpr i64 growing_records_per_byte = 26;
constexpr i64 room_for_play = i64{16} * 1024 * 1024;  // bytes that a map must leave

struct record_counts {
    i64 states;
    i64 transitions;
    i64 stones;
    i64 goals;
};

// Reads a text for the counts of its records alone; the loaded map stays as it is.
record_counts records_count(str text) {
    const i64 mark = arenas[arena_persistent].offset;
    const whole_map before = map_exchange({});
    record_counts counted = {};
    text_cursor cursor = {text.data, text.length, 0};
    while (cursor.position < cursor.size) {
        read_line(cursor);
        counted.states += game_map.states.count;
        counted.transitions += game_map.transitions.count;
        counted.stones += stones.count;
        counted.goals += goals.count;
        map_clear();
    }
    map_exchange(before);
    arena_rewind(arena_persistent, mark);
    return counted;
}

// Bytes of the block that the text will lie in.
i64 text_capacity_for(str text) {
    return text.length <= game_map.text_capacity
               ? text.length
               : std::max(text.length, 2 * game_map.text_capacity);
}

// Bytes of the block that a list needs to hold `count` elements.
template <typename element>
i64 list_growth(const dyn_array<element>& list, i64 count) {
    i64 size = sizeof(element);
    return count <= list.capacity ? 0 : std::max(count, 2 * list.capacity) * size;
}

// Whether the arena has room for the map of a text that lies in it already. The records of a large
// one are counted for that.
bool map_fits(str text, record_counts& counted) {
    const i64 room = arena_room(arena_persistent) - room_for_play;
    if (text.length <= room / growing_records_per_byte) {
        return true;
    }
    counted = records_count(text);
    const i64 nimber_count = machine_kind == state_machine ? counted.states : 0;
    const dyn_array<u8> nimbers = {game_map.nimbers, 0, game_map.nimber_capacity, arena_persistent};
    const i64 needed = list_growth(game_map.states, counted.states) +
                       list_growth(game_map.transitions, counted.transitions) +
                       list_growth(stones, counted.stones) + list_growth(goals, counted.goals) +
                       list_growth(nimbers, nimber_count) + text_capacity_for(text) - text.length;
    return needed <= std::max(room, i64{0});
}

// A text that was read into a new block at `mark` stays there while there is plenty of memory. Else
// it moves into the block of the map before, whose rules are gone, so that maps can be loaded again
// and again for ever.
str text_settle(str text, i64 mark) {
    if (arena_has_plenty()) {
        game_map.text = const_cast<char*>(text.data);
        game_map.text_capacity = text.length;
        return text;
    }
    arena_rewind(arena_persistent, mark);
    if (text.length > game_map.text_capacity) {
        game_map.text_capacity = text_capacity_for(text);
        game_map.text = static_cast<char*>(arena_alloc(arena_persistent, game_map.text_capacity));
    }
    if (text.length > 0) {
        std::memmove(game_map.text, text.data, static_cast<std::size_t>(text.length));
    }
    return {game_map.text, text.length};
}

}  // namespace

void map_read(str text) {
    map_clear();
    text_cursor cursor = {text.data, text.length, 0};
    while (cursor.position < cursor.size) {
        [[maybe_unused]] i64 line_start = cursor.position;
        read_line(cursor);
        assert(cursor.position > line_start);
    }
    if (machine_kind == state_machine) {
        nimbers_compute();
    }
    fault_assert(map_fault);
}

bool map_take(str text, i64 mark) {
    record_counts counted = {};
    if (!map_fits(text, counted)) {
        arena_rewind(arena_persistent, mark);
        return false;
    }
    map_work_give_way();
    text = text_settle(text, mark);
    dyn_array_reserve(game_map.states, counted.states);
    dyn_array_reserve(game_map.transitions, counted.transitions);
    dyn_array_reserve(stones, counted.stones);
    dyn_array_reserve(goals, counted.goals);
    map_read(text);
    return true;
}

void map_load(str path) {
    i64 mark = arenas[arena_persistent].offset;
    str text;
    if (!file_read_all(path, text) || !map_take(text, mark)) {
        failure_tell({"failed to load map: ", path});
        return;
    }
    map_work_is_saved(path);
}
