#include "maps/map_bytes.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <iterator>

#include "base/arithmetic.h"
#include "base/text_builder.h"
#include "maps/model.h"

// The fields of each record are named once, for a writer and a reader alike, and copied as they lie
// in memory. Writing and reading take time proportional to the map; which field a byte belongs to
// is found by walking over the records before it.

namespace {

enum record_letter : char {
    settings_letter = 'm',
    goal_letter = 'g',
    stone_letter = 's',
    state_letter = '.',
    transition_letter = '>',
};

// Takes every field it is shown; beyond the capacity it only counts.
struct byte_writer {
    char* data;
    i64 capacity;
    i64 size;

    void bytes(const void* from, i64 count) {
        if (count > 0 && size + count <= capacity) {
            std::memcpy(data + size, from, static_cast<std::size_t>(count));
        }
        size += count;
    }
    template <typename value>
    void field(const value& v) {
        bytes(&v, sizeof v);
    }
    void field(str text) {
        field(static_cast<u32>(text.length));
        bytes(text.data, text.length);
    }
};

// Fills every field it is shown.
struct byte_reader {
    str bytes;
    i64 position;

    template <typename value>
    void field(value& v) {
        assert(position + i64{sizeof v} <= bytes.length);
        std::memcpy(&v, bytes.data + position, sizeof v);
        position += sizeof v;
    }
    void field(str& text) {
        u32 length = 0;
        field(length);
        assert(position + length <= bytes.length);
        text = {bytes.data + position, length};
        position += length;
    }
};

// The fields of each record in their order, for the writer and the reader alike.

template <typename stream>
void fields_visit(stream& s, map_record& map, map_settings& chosen) {
    s.field(map.origin_x);
    s.field(map.origin_y);
    s.field(map.scale);
    s.field(chosen.deck_copies);
    s.field(chosen.deck_colours);
    s.field(chosen.deck_shapes);
    s.field(chosen.deck_numbers);
    s.field(chosen.hand_size);
    s.field(chosen.tape_length);
    s.field(chosen.win_mode);
}

template <typename stream>
void fields_visit(stream& s, card& c) {
    s.field(c.colour);
    s.field(c.shape);
    s.field(c.number);
}

template <typename stream>
void fields_visit(stream& s, goal& g) {
    s.field(g.measure);
    s.field(g.comparison);
    s.field(g.target);
    fields_visit(s, g.card_a);
    fields_visit(s, g.card_b);
}

template <typename stream>
void fields_visit(stream& s, u16& stone) {
    s.field(stone);
}

template <typename stream>
void fields_visit(stream& s, map_state& state) {
    s.field(state.x);
    s.field(state.y);
    s.field(state.accepting);
}

template <typename stream>
void fields_visit(stream& s, transition& arc) {
    s.field(arc.from);
    s.field(arc.to);
    s.field(arc.bend);
    s.field(arc.label_dx);
    s.field(arc.label_dy);
    s.field(arc.rule);
}

template <typename element>
void list_write(byte_writer& writer, record_letter letter, dyn_array<element>& list) {
    for (element& e : list) {
        writer.field(letter);
        fields_visit(writer, e);
    }
}

template <typename element>
void element_read(byte_reader& reader, dyn_array<element>& list) {
    element e = {};
    fields_visit(reader, e);
    dyn_array_push(list, e);
}

// Bytes of the record that begins at `start`.
i64 record_size(str bytes, i64 start) {
    constexpr i64 rule_at = 1 + 6 + 8;
    u32 rule_length = 0;
    switch (bytes[start]) {
        case settings_letter:
            return 1 + 24 + 48 + 1;
        case goal_letter:
            return 1 + 2 + 8 + 6;
        case stone_letter:
            return 1 + 2;
        case state_letter:
            return 1 + 16 + 1;
        default:
            assert(bytes[start] == transition_letter);
            std::memcpy(&rule_length, bytes.data + start + rule_at, sizeof rule_length);
            return rule_at + i64{sizeof rule_length} + rule_length;
    }
}

void record_read(byte_reader& reader) {
    [[maybe_unused]] const i64 end = reader.position + record_size(reader.bytes, reader.position);
    record_letter letter = {};
    reader.field(letter);
    switch (letter) {
        case settings_letter:
            fields_visit(reader, game_map, settings);
            break;
        case goal_letter:
            element_read(reader, goals);
            break;
        case stone_letter:
            element_read(reader, stones);
            break;
        case state_letter:
            element_read(reader, game_map.states);
            break;
        case transition_letter:
            element_read(reader, game_map.transitions);
            break;
    }
    assert(reader.position == end);
}

// What an author calls the bytes of a record from the end of the row above up to `end`.
struct part_row {
    record_letter letter;
    i64 end;
    map_part_name name;
};

constexpr i64 record_end = 0x1'0000'0000;

constexpr part_row part_rows[] = {
    {settings_letter, 1 + 24, part_view},
    {settings_letter, 1 + 24 + 32, part_deck},
    {settings_letter, 1 + 24 + 40, part_hand},
    {settings_letter, 1 + 24 + 48, part_tape},
    {settings_letter, record_end, part_win},
    {goal_letter, record_end, part_goal},
    {stone_letter, record_end, part_stone},
    {state_letter, 1 + 16, part_state_place},
    {state_letter, record_end, part_state_accepting},
    {transition_letter, 1 + 4, part_arrow},
    {transition_letter, 1 + 6, part_arrow_bend},
    {transition_letter, 1 + 14, part_arrow_label},
    {transition_letter, record_end, part_arrow_rule},
};

map_part_name part_name_at(char letter, i64 offset) {
    return std::find_if(
               std::begin(part_rows), std::end(part_rows) - 1,
               [=](const part_row& row) { return row.letter == letter && offset < row.end; })
        ->name;
}

}  // namespace

i64 map_bytes_write(char* to, i64 capacity) {
    byte_writer writer = {to, capacity, 0};
    map_settings shown = settings;
    i64 win_mode = floor_modulo(static_cast<i8>(settings.win_mode), win_mode_count);
    shown.win_mode = static_cast<u8>(win_mode);
    writer.field(settings_letter);
    fields_visit(writer, game_map, shown);
    list_write(writer, goal_letter, goals);
    list_write(writer, stone_letter, stones);
    list_write(writer, state_letter, game_map.states);
    list_write(writer, transition_letter, game_map.transitions);
    return writer.size;
}

void map_bytes_read(str bytes) {
    map_clear();
    for (byte_reader reader = {bytes, 0}; reader.position < bytes.length;) {
        record_read(reader);
    }
}

void map_rules_own() {
    i64 size = 0;
    for (const transition& arc : game_map.transitions) {
        size += arc.rule.length;
    }
    if (size > game_map.text_capacity) {
        game_map.text_capacity = std::max(size, 2 * game_map.text_capacity);
        game_map.text = static_cast<char*>(arena_alloc(arena_persistent, game_map.text_capacity));
    }
    text_buffer text = {game_map.text, game_map.text_capacity, 0, 0};
    for (transition& arc : game_map.transitions) {
        str copy = {text.data + text.length, arc.rule.length};
        text_buffer_put_str(text, arc.rule);
        arc.rule = copy;
    }
}

map_part map_part_at(str bytes, i64 position) {
    assert(0 <= position && position < bytes.length);
    map_part part = {part_view, 0};
    char letter_before = settings_letter;
    for (i64 start = 0;; start += record_size(bytes, start)) {
        const char letter = bytes[start];
        part.index = letter == letter_before ? part.index + 1 : 0;
        letter_before = letter;
        if (position < start + record_size(bytes, start)) {
            part.name = part_name_at(letter, position - start);
            return part;
        }
    }
}
