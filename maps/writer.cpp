#include "maps/writer.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/message.h"
#include "base/numbers.h"
#include "maps/catalogue.h"
#include "maps/file_text.h"
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

void family_settings_write(text_builder& text) {
    if (machine_kind == state_machine) {
        return;
    }
    deck_write(text);
    bool pushdown = machine_kind == pushdown_machine;
    text_builder_put_str(text, pushdown ? str("hand") : str("tape"));
    put_int(text, pushdown ? settings.hand_size : settings.tape_length);
    text_builder_put(text, '\n');
    if (!pushdown) {
        for (const goal& g : goals) {
            goal_write(text, g);
        }
    }
}

void state_write(text_builder& text, const map_state& s) {
    text_builder_put(text, s.accepting ? '*' : '.');
    put_real(text, s.x);
    put_real(text, s.y);
    text_builder_put(text, '\n');
}

void transition_write(text_builder& text, const transition& arc) {
    text_builder_put_str(text, "=>");
    put_index(text, arc.from);
    put_index(text, arc.to);
    put_int(text, arc.bend);
    put_label_offset(text, arc.label_dx);
    put_label_offset(text, arc.label_dy);
    text_builder_put_str(text, " \"");
    text_builder_put_str(text, arc.rule);
    text_builder_put_str(text, "\"\n");
}

// False when the file could not be replaced.
bool map_file_write(str path) {
    i64 mark = arenas[arena_persistent].offset;
    text_builder text = {};
    map_write(text);
    bool written = file_write_all(path, text_builder_text(text));
    arena_rewind(arena_persistent, mark);
    return written;
}

// The byte at `i`, which moves on; several "/" in a row are one. '\0' at the path's end.
char path_next(str path, i64& i) {
    while (i + 1 < path.length && path[i] == '/' && path[i + 1] == '/') {
        i += 1;
    }
    char byte = i < path.length ? path[i] : '\0';
    i += 1;
    return byte;
}

bool path_is_same(str a, str b) {
    char byte = '\0';
    i64 in_a = 0;
    i64 in_b = 0;
    do {
        byte = path_next(a, in_a);
        if (byte != path_next(b, in_b)) {
            return false;
        }
    } while (byte != '\0');
    return true;
}

// Different names may become one file.
void shared_path_report(str name, str path) {
    if (current_catalogue == nullptr) {
        return;
    }
    for (const catalogue_entry& entry : *current_catalogue) {
        if (path_is_same(entry.path, path) && !(entry.name == name)) {
            message_write({"file shared with map ", entry.name, "\n"});
            return;
        }
    }
}

}  // namespace

void map_write(text_builder& text) {
    settings_write(text);
    family_settings_write(text);
    for (u16 state : stones) {
        text_builder_put_str(text, "stone");
        put_index(text, state);
        text_builder_put(text, '\n');
    }
    for (const map_state& s : game_map.states) {
        state_write(text, s);
    }
    for (const transition& arc : game_map.transitions) {
        transition_write(text, arc);
    }
}

void map_save(str name) {
    str path = custom_map_path(name);
    message_write({"saving map ", name, " as ", path, "\n"});
    shared_path_report(name, path);
    if (!map_file_write(path)) {
        message_write({"failed to save map: ", path, "\n"});
        return;
    }
    catalogue_add(name, path);
}
