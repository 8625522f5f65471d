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
#include "maps/scan.h"

// Every line is tried for each keyword once, in a fixed order, at a position that moves on when one
// matches; then the rest of the line is dropped. Each line is passed over a bounded number of times
// and left behind, so a text of any bytes is read in time proportional to its size.

namespace {

// The following field: one byte is skipped, whatever it is.
i64 next_int(text_cursor& cursor) {
    cursor.position += 1;
    return text_scan_int(cursor);
}

f64 next_real(text_cursor& cursor) {
    cursor.position += 1;
    return text_scan_real(cursor);
}

u8 next_byte(text_cursor& cursor) {
    return static_cast<u8>(next_int(cursor));
}

bool has_more_fields(const text_cursor& cursor) {
    return text_has_prefix(cursor, " ");
}

void read_view(text_cursor& cursor) {
    game_map.origin_x = text_scan_real(cursor);
    game_map.origin_y = next_real(cursor);
    game_map.scale = next_real(cursor);
}

void read_win(text_cursor& cursor) {
    settings.win_mode = static_cast<u8>(text_scan_int(cursor));
}

void read_deck(text_cursor& cursor) {
    settings.deck_copies = text_scan_int(cursor);
    settings.deck_colours = next_int(cursor);
    settings.deck_shapes = next_int(cursor);
    settings.deck_numbers = next_int(cursor);
}

void read_hand(text_cursor& cursor) {
    settings.hand_size = text_scan_int(cursor);
}

void read_tape(text_cursor& cursor) {
    settings.tape_length = text_scan_int(cursor);
}

void read_goal_card(text_cursor& cursor, card& c) {
    if (has_more_fields(cursor)) {
        c.colour = next_byte(cursor);
        c.shape = next_byte(cursor);
        c.number = next_byte(cursor);
    }
}

void read_goal(text_cursor& cursor) {
    goal g;
    g.measure = static_cast<u8>(text_scan_int(cursor));
    g.comparison = next_byte(cursor);
    g.target = next_int(cursor);
    read_goal_card(cursor, g.card_a);
    read_goal_card(cursor, g.card_b);
    dyn_array_push(goals, g);
}

void read_stone(text_cursor& cursor) {
    dyn_array_push(stones, static_cast<u16>(text_scan_int(cursor)));
}

void read_state(text_cursor& cursor, u8 accepting) {
    f64 x = text_scan_real(cursor);
    f64 y = next_real(cursor);
    map_add_state(x, y, accepting);
}

void read_accepting_state(text_cursor& cursor) {
    read_state(cursor, 1);
}

void read_plain_state(text_cursor& cursor) {
    read_state(cursor, 0);
}

void read_transition(text_cursor& cursor) {
    transition arc = {};
    arc.from = static_cast<u16>(text_scan_int(cursor));
    arc.to = static_cast<u16>(next_int(cursor));
    arc.bend = static_cast<i16>(next_int(cursor));
    if (has_more_fields(cursor)) {
        arc.label_dx = static_cast<f32>(next_real(cursor));
        arc.label_dy = static_cast<f32>(next_real(cursor));
        cursor.position += 2;  // the blank and the opening quote
        arc.rule = text_scan_until(cursor, '"');
    }
    dyn_array_push(game_map.transitions, arc);
}

struct map_keyword {
    str word;
    void (*read)(text_cursor& cursor);
};

// In the order in which they are tried at every line.
constexpr map_keyword keywords[] = {
    {"map ", read_view},      {"win ", read_win},           {"deck ", read_deck},
    {"hand ", read_hand},     {"tape ", read_tape},         {"goal ", read_goal},
    {"stone ", read_stone},   {"* ", read_accepting_state}, {". ", read_plain_state},
    {"$ ", read_plain_state}, {"=> ", read_transition},
};

void read_line(text_cursor& cursor) {
    for (const map_keyword& keyword : keywords) {
        if (text_has_prefix(cursor, keyword.word)) {
            cursor.position += keyword.word.length;
            keyword.read(cursor);
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
