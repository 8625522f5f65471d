#include "maps/reader.h"

#include <algorithm>
#include <cassert>
#include <cstring>

#include "base/message.h"
#include "maps/file_text.h"
#include "maps/kept.h"
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

// Moves a text that was read into a new block at `mark` into the block of the map before, whose
// rules are gone, so that loading maps again and again needs no new memory.
str text_settle(str text, i64 mark) {
    arena_rewind(arena_persistent, mark);
    if (text.length > game_map.text_capacity) {
        i64 room = arena_room(arena_persistent);
        game_map.text_capacity = std::min(std::max(text.length, 2 * game_map.text_capacity), room);
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
        i64 line_start = cursor.position;
        read_line(cursor);
        assert(cursor.position > line_start);
    }
    if (machine_kind == state_machine) {
        nimbers_compute();
    }
    fault_assert(map_fault);
}

void map_load(str path) {
    i64 mark = arenas[arena_persistent].offset;
    str text;
    if (!file_read_all(path, text)) {
        message_write({"failed to load map: ", path, "\n"});
        return;
    }
    map_work_keep();
    map_read(text_settle(text, mark));
    map_work_is_saved(path);
}
