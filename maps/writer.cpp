#include "maps/writer.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <initializer_list>
#include <limits>

#include "base/numbers.h"
#include "maps/records.h"

namespace {

constexpr f64 smallest_written = 0.00005;  // below it all four decimals are 0
constexpr f64 largest_label_offset = std::numeric_limits<f32>::max();
constexpr i64 line_capacity = 1024;  // bytes; a line without its rule takes less

// The text on its way to who takes it, line by line.
struct map_output {
    text_builder line;
    text_taker take;
    void* to;
};

void line_pass(map_output& out) {
    out.take(out.to, text_builder_text(out.line));
    out.line.length = 0;
    out.line.cursor = 0;
}

// A zero has no sign, which would be lost when it is read back.
void put_real(text_builder& text, f64 value) {
    text_builder_put_real(text, std::abs(value) < smallest_written ? 0 : value);
}

// A text has any length, so it is passed on as it is.
void put_quoted(map_output& out, str text) {
    text_builder_put(out.line, '"');
    line_pass(out);
    out.take(out.to, text);
    text_builder_put(out.line, '"');
}

void put_field(map_output& out, char kind, const record_value& value) {
    switch (kind) {
        case field_whole:
            text_builder_put_int(out.line, value.whole);
            break;
        case field_byte:
            text_builder_put_int(out.line, static_cast<i8>(value.whole));
            break;
        case field_index:
            text_builder_put_int(out.line, static_cast<i16>(value.whole));
            break;
        case field_offset:  // a file may give one beyond all f32, but an infinity cannot be read
            put_real(out.line, std::clamp(value.real, -largest_label_offset, largest_label_offset));
            break;
        case field_real:
            put_real(out.line, value.real);
            break;
        default:
            assert(kind == field_quoted);
            put_quoted(out, value.text);
    }
}

// Writes the line of a record with as many fields and groups as there are values.
void record_write(map_output& out, record_kind kind, const record_value* values, i64 count) {
    const record_form& form = record_forms[kind];
    assert(count >= form.fields.length);
    text_builder_put_str(out.line, {form.keyword.data, form.keyword.length - 1});
    for (i64 i = 0; i < count; ++i) {
        const i64 behind = i - form.fields.length;
        text_builder_put(out.line, ' ');
        put_field(out, behind < 0 ? form.fields[i] : form.group[behind % form.group.length],
                  values[i]);
    }
    text_builder_put(out.line, '\n');
    line_pass(out);
}

void record_write(map_output& out, record_kind kind, std::initializer_list<record_value> values) {
    record_write(out, kind, values.begin(), static_cast<i64>(values.size()));
}

void settings_write(map_output& out, i64 family) {
    record_write(
        out, record_view,
        {{.real = game_map.origin_x}, {.real = game_map.origin_y}, {.real = game_map.scale}});
    record_write(out, record_win, {{.whole = settings.win_mode}});
    if (family != state_machine) {
        record_write(out, record_deck,
                     {{.whole = settings.deck_copies},
                      {.whole = settings.deck_colours},
                      {.whole = settings.deck_shapes},
                      {.whole = settings.deck_numbers}});
    }
    if (family == pushdown_machine) {
        record_write(out, record_hand, {{.whole = settings.hand_size}});
    }
    if (family == turing_machine) {
        record_write(out, record_tape, {{.whole = settings.tape_length}});
    }
}

// The cards follow that the measure counts.
void goal_write(map_output& out, const goal& g) {
    const i64 measure = static_cast<i8>(g.measure);
    const i64 cards = measure >= measure_either_colour ? 2 : measure >= measure_colour ? 1 : 0;
    const record_value values[] = {
        {.whole = g.measure},       {.whole = g.comparison},   {.whole = g.target},
        {.whole = g.card_a.colour}, {.whole = g.card_a.shape}, {.whole = g.card_a.number},
        {.whole = g.card_b.colour}, {.whole = g.card_b.shape}, {.whole = g.card_b.number},
    };
    record_write(out, record_goal, values, 3 + 3 * cards);
}

void transition_write(map_output& out, const transition& arc) {
    record_write(out, record_transition,
                 {{.whole = arc.from},
                  {.whole = arc.to},
                  {.whole = arc.bend},
                  {.real = arc.label_dx},
                  {.real = arc.label_dy},
                  {.text = arc.rule}});
}

}  // namespace

void map_write(i64 family, text_taker take, void* to) {
    char line[line_capacity];
    map_output out = {{line, 0, line_capacity, arena_persistent, 0}, take, to};
    settings_write(out, family);
    if (family == turing_machine) {
        for (const goal& g : goals) {
            goal_write(out, g);
        }
    }
    for (u16 state : stones) {
        record_write(out, record_stone, {{.whole = state}});
    }
    for (const map_state& s : game_map.states) {
        record_write(out, s.accepting ? record_accepting : record_plain,
                     {{.real = s.x}, {.real = s.y}});
    }
    for (const transition& arc : game_map.transitions) {
        transition_write(out, arc);
    }
}

void map_write(text_builder& text) {
    map_write(
        machine_kind,
        [](void* to, str piece) { text_builder_put_str(*static_cast<text_builder*>(to), piece); },
        &text);
}
