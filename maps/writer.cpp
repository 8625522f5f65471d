#include "maps/writer.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/numbers.h"
#include "maps/model.h"

namespace {

constexpr f64 smallest_written = 0.00005;  // below it all four decimals are 0
constexpr f32 largest_label_offset = std::numeric_limits<f32>::max();

void put_int(text_builder& text, i64 value) {
    text_builder_put(text, ' ');
    text_builder_put_int(text, value);
}

// A zero has no sign, which would be lost when it is read back.
void put_real(text_builder& text, f64 value) {
    text_builder_put(text, ' ');
    text_builder_put_real(text, std::abs(value) < smallest_written ? 0 : value);
}

// A file may give a label an offset beyond all f32, but an infinity cannot be read.
void put_label_offset(text_builder& text, f32 value) {
    put_real(text, std::clamp(value, -largest_label_offset, largest_label_offset));
}

// Bytes and indices stand in the file as signed numbers.
void put_byte(text_builder& text, u8 value) {
    put_int(text, static_cast<i8>(value));
}

void put_index(text_builder& text, u16 value) {
    put_int(text, static_cast<i16>(value));
}

constexpr i64 line_capacity = 1024;  // bytes; a line without its rule takes less

// The text on its way to who takes it, line by line.
struct map_output {
    text_builder line;
    i64 family;
    text_taker take;
    void* to;
};

void line_pass(map_output& out) {
    out.take(out.to, text_builder_text(out.line));
    out.line.length = 0;
    out.line.cursor = 0;
}

void settings_write(text_builder& text) {
    text_builder_put_str(text, "map");
    put_real(text, game_map.origin_x);
    put_real(text, game_map.origin_y);
    put_real(text, game_map.scale);
    text_builder_put_str(text, "\nwin");
    put_byte(text, settings.win_mode);
    text_builder_put(text, '\n');
}

void deck_write(text_builder& text) {
    text_builder_put_str(text, "deck");
    put_int(text, settings.deck_copies);
    put_int(text, settings.deck_colours);
    put_int(text, settings.deck_shapes);
    put_int(text, settings.deck_numbers);
    text_builder_put(text, '\n');
}

void goal_card_write(text_builder& text, card c) {
    put_byte(text, c.colour);
    put_byte(text, c.shape);
    put_byte(text, c.number);
}

void goal_write(text_builder& text, const goal& g) {
    text_builder_put_str(text, "goal");
    put_byte(text, g.measure);
    put_byte(text, g.comparison);
    put_int(text, g.target);
    if (static_cast<i8>(g.measure) >= measure_colour) {
        goal_card_write(text, g.card_a);
    }
    if (static_cast<i8>(g.measure) >= measure_either_colour) {
        goal_card_write(text, g.card_b);
    }
    text_builder_put(text, '\n');
}

void family_settings_write(map_output& out) {
    if (out.family == state_machine) {
        return;
    }
    deck_write(out.line);
    bool pushdown = out.family == pushdown_machine;
    text_builder_put_str(out.line, pushdown ? str("hand") : str("tape"));
    put_int(out.line, pushdown ? settings.hand_size : settings.tape_length);
    text_builder_put(out.line, '\n');
    line_pass(out);
    if (!pushdown) {
        for (const goal& g : goals) {
            goal_write(out.line, g);
            line_pass(out);
        }
    }
}

void stone_write(text_builder& text, u16 state) {
    text_builder_put_str(text, "stone");
    put_index(text, state);
    text_builder_put(text, '\n');
}

void state_write(text_builder& text, const map_state& s) {
    text_builder_put(text, s.accepting ? '*' : '.');
    put_real(text, s.x);
    put_real(text, s.y);
    text_builder_put(text, '\n');
}

// A rule has any length, so it is passed on as it is.
void transition_write(map_output& out, const transition& arc) {
    text_builder_put_str(out.line, "=>");
    put_index(out.line, arc.from);
    put_index(out.line, arc.to);
    put_int(out.line, arc.bend);
    put_label_offset(out.line, arc.label_dx);
    put_label_offset(out.line, arc.label_dy);
    text_builder_put_str(out.line, " \"");
    line_pass(out);
    out.take(out.to, arc.rule);
    text_builder_put_str(out.line, "\"\n");
    line_pass(out);
}

}  // namespace

void map_write(i64 family, text_taker take, void* to) {
    char line[line_capacity];
    map_output out = {{line, 0, line_capacity, arena_persistent, 0}, family, take, to};
    settings_write(out.line);
    family_settings_write(out);
    for (u16 state : stones) {
        stone_write(out.line, state);
        line_pass(out);
    }
    for (const map_state& s : game_map.states) {
        state_write(out.line, s);
        line_pass(out);
    }
    for (const transition& arc : game_map.transitions) {
        transition_write(out, arc);
    }
    line_pass(out);
}

void map_write(text_builder& text) {
    map_write(
        machine_kind,
        [](void* to, str piece) { text_builder_put_str(*static_cast<text_builder*>(to), piece); },
        &text);
}
