#include "game/game_writer.h"

#include <cassert>

#include "base/numbers.h"
#include "game/game_words.h"
#include "game/record.h"
#include "maps/family.h"
#include "maps/scan.h"
#include "rules/seats.h"

namespace {

constexpr i64 line_capacity = 512;  // bytes; no line but the map's is longer

struct line_output {
    text_buffer line;
    text_taker take;
    void* to;
};

void put(line_output& out, str word) {
    if (out.line.length > 0) {
        text_buffer_put(out.line, ' ');
    }
    text_buffer_put_str(out.line, word);
}

void put(line_output& out, i64 number) {
    text_buffer_put(out.line, ' ');
    text_buffer_put_int(out.line, number);
}

void line_end(line_output& out) {
    text_buffer_put(out.line, '\n');
    out.take(out.to, text_buffer_text(out.line));
    out.line.length = 0;
    out.line.cursor = 0;
}

void put_hexadecimal(line_output& out, u64 value) {
    char digits[16];
    for (char& digit : digits) {
        digit = "0123456789abcdef"[value >> 60];
        value <<= 4;
    }
    put(out, {digits, sizeof digits});
}

void seats_write(line_output& out) {
    for (i64 i = 0; i < record.seat_count; ++i) {
        const record_seat& seat = record.seats[i];
        put(out, "seat");
        put(out, seat_kinds[seat.is_computer ? 1 + seat.strength : 0]);
        put(out, game_colours[seat.colour_index]);
        line_end(out);
    }
}

void deal_write(line_output& out) {
    const random_state& chance = record.start.chance;
    put(out, "chance");
    for (u64 word : {chance.s0, chance.s1, chance.s2, chance.s3}) {
        put_hexadecimal(out, word);
    }
    line_end(out);
    const map_settings& cards = record.settings;
    put(out, "cards");
    for (i64 number : {cards.deck_copies, cards.deck_colours, cards.deck_shapes, cards.deck_numbers,
                       cards.hand_size, cards.tape_length}) {
        put(out, number);
    }
    line_end(out);
    put(out, "head");
    put(out, record.start.tape_head);
    line_end(out);
    if (record.start.card_drawn) {
        put(out, "drawn");
        line_end(out);
    }
}

void map_lines_write(line_output& out) {
    text_cursor cursor = {record_map, record.map_length, 0};
    for (str line; text_next_line(cursor, line);) {
        out.take(out.to, game_map_prefix);
        out.take(out.to, line);
        out.take(out.to, str("\n"));
    }
}

void act_write(line_output& out, const recorded_act& act) {
    if (act.by_computer) {
        put(out, game_computer_word);
        put(out, i64{act.draws});
    }
    put(out, game_act_words[act.what.kind]);
    if (act.what.kind == act_move) {
        put(out, act.what.arc);
        if (record.family == pushdown_machine) {
            put(out, act.what.card);
        }
    }
    if (act.in_flight) {
        put(out, game_flying_word);
    }
    line_end(out);
}

}  // namespace

bool game_can_be_written() {
    return record_stays() && record.whole && record.act_count > 0 &&
           record.map_length <= record_map_limit;
}

void game_write(text_taker take, void* to) {
    assert(game_can_be_written());
    char bytes[line_capacity];
    line_output out = {{bytes, line_capacity, 0, 0}, take, to};
    take(to, game_text_start);
    put(out, game_version);
    line_end(out);
    put(out, "family");
    put(out, family_names[record.family]);
    line_end(out);
    if (record.name_length > 0) {
        put(out, "name");
        put(out, {record.name, record.name_length});
        line_end(out);
    }
    seats_write(out);
    deal_write(out);
    if (record.position < record.act_count) {
        put(out, "position");
        put(out, record.position);
        line_end(out);
    }
    map_lines_write(out);
    for (i64 i = 0; i < record.act_count; ++i) {
        act_write(out, record_acts[i]);
    }
}
