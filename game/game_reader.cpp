#include "game/game_reader.h"

#include <algorithm>
#include <limits>

#include "ai/computer.h"
#include "base/text_builder.h"
#include "game/game_words.h"
#include "game/record.h"
#include "maps/catalogue.h"
#include "maps/family.h"
#include "maps/scan.h"
#include "platform/system.h"
#include "rules/cards.h"
#include "rules/random.h"
#include "rules/seats.h"

namespace {

constexpr u64 thinking_time = 1'000'000'000;  // nanoseconds

str word_take(str& rest) {
    text_cursor cursor = {rest.data, rest.length, 0};
    str word = text_scan_until(cursor, ' ');
    i64 taken = std::min(cursor.position + 1, rest.length);
    rest = {rest.data + taken, rest.length - taken};
    return word;
}

bool is_decimal(str word) {
    i64 first = word.length > 0 && word[0] == '-' ? 1 : 0;
    return first < word.length && word.length - first <= 18 &&
           std::all_of(word.begin() + first, word.end(),
                       [](char c) { return '0' <= c && c <= '9'; });
}

bool number_take(str& rest, i64 lowest, i64 highest, i64& value) {
    str word = word_take(rest);
    if (!is_decimal(word)) {
        return false;
    }
    text_cursor cursor = {word.data, word.length, 0};
    value = text_scan_int(cursor);
    return lowest <= value && value <= highest;
}

bool hexadecimal_take(str& rest, u64& value) {
    constexpr str digits = "0123456789abcdef";
    str word = word_take(rest);
    value = 0;
    for (char c : word) {
        const char* digit = std::find(digits.begin(), digits.end(), c);
        value = value << 4 | static_cast<u64>(digit - digits.begin());
        if (digit == digits.end()) {
            return false;
        }
    }
    return word.length == 16;
}

// The place of a word among those of a table; -1 when it is none of them.
template <std::size_t count>
i64 place_of(str word, const str (&words)[count]) {
    const str* found = std::find(words, words + count, word);
    return found != words + count ? found - words : -1;
}

// What stands before the map.
struct game_head {
    i64 family = no_family;
    str name;
    record_seat seats[player_limit] = {};
    i64 seat_count = 0;
    deal_start start = {};
    map_settings cards = {};
    i64 position = record_act_limit;
};

bool family_read(game_head& head, str rest) {
    head.family = family_named(rest);
    return head.family != no_family;
}

bool name_read(game_head& head, str rest) {
    head.name = rest;
    return rest.length <= record_name_limit;
}

bool seat_read(game_head& head, str rest) {
    i64 kind = place_of(word_take(rest), seat_kinds);
    i64 colour = place_of(word_take(rest), game_colours);
    if (kind < 0 || colour < 0 || rest.length > 0 || head.seat_count == player_limit) {
        return false;
    }
    head.seats[head.seat_count] = {kind > 0, static_cast<u8>(std::max(kind - 1, i64{0})),
                                   static_cast<u8>(colour)};
    head.seat_count += 1;
    return true;
}

bool chance_read(game_head& head, str rest) {
    random_state& chance = head.start.chance;
    for (u64* word : {&chance.s0, &chance.s1, &chance.s2, &chance.s3}) {
        if (!hexadecimal_take(rest, *word)) {
            return false;
        }
    }
    return rest.length == 0 && chance != random_state{};
}

bool cards_read(game_head& head, str rest) {
    constexpr i64 most = std::numeric_limits<i64>::max();
    map_settings& cards = head.cards;
    for (i64* number : {&cards.deck_copies, &cards.deck_colours, &cards.deck_shapes,
                        &cards.deck_numbers, &cards.hand_size, &cards.tape_length}) {
        if (!number_take(rest, -most, most, *number)) {
            return false;
        }
    }
    return rest.length == 0;
}

bool tape_head_read(game_head& head, str rest) {
    return number_take(rest, 0, pile_limit, head.start.tape_head) && rest.length == 0;
}

bool drawn_read(game_head& head, str rest) {
    head.start.card_drawn = true;
    return rest.length == 0;
}

bool position_read(game_head& head, str rest) {
    return number_take(rest, 0, record_act_limit, head.position) && rest.length == 0;
}

struct head_line {
    str word;
    bool (*read)(game_head& head, str rest);
    str wanted;  // told when it cannot be read
};

constexpr head_line head_lines[] = {
    {"family", family_read, "wanted: family state, pushdown or turing"},
    {"name", name_read, "the name is too long"},
    {"seat", seat_read, "wanted: seat human, easy, normal or hard, then its colour; at most six"},
    {"chance", chance_read, "wanted: chance and four numbers of 16 digits 0 to f, not all 0"},
    {"cards", cards_read, "wanted: cards and six numbers"},
    {"head", tape_head_read, "wanted: head and a number from 0"},
    {"drawn", drawn_read, "wanted: drawn, and nothing else"},
    {"position", position_read, "wanted: position and a number of acts"},
};

struct line_input {
    text_cursor cursor;
    i64 number = 0;  // of the line that was read last, from 1
    str line = {};   // without blanks and "\r" at its end
};

// The next line that holds something; false at the end.
bool line_next(line_input& in) {
    while (text_next_line(in.cursor, in.line)) {
        in.number += 1;
        str& line = in.line;
        while (line.length > 0 && (line[line.length - 1] == ' ' || line[line.length - 1] == '\r')) {
            line.length -= 1;
        }
        if (line.length > 0 && line[0] != '#') {
            return true;
        }
    }
    return false;
}

bool fail(text_fault& fault, const line_input& in, str reason) {
    fault = {std::max(in.number, i64{1}), reason};
    return false;
}

bool line_is_of_map(const line_input& in) {
    return in.line.length > 0 && in.line[0] == game_map_prefix[0];
}

str head_line_fault(game_head& head, str line) {
    str word = word_take(line);
    for (const head_line& known : head_lines) {
        if (known.word == word) {
            return known.read(head, line) ? str() : known.wanted;
        }
    }
    return "no game has this line before its map";
}

// Up to the map's first line, which is read then.
bool head_read(line_input& in, game_head& head, text_fault& fault) {
    if (!line_next(in) || !text_is_game(in.line)) {
        return fail(fault, in, "a game begins with \"quorrel game 1\"");
    }
    if (str_after_last(in.line, ' ') != game_version) {
        return fail(fault, in, "this game is of another version");
    }
    while (line_next(in) && !line_is_of_map(in)) {
        if (str reason = head_line_fault(head, in.line); reason.length > 0) {
            return fail(fault, in, reason);
        }
    }
    if (head.family == no_family || head.seat_count == 0 || head.start.chance == random_state{}) {
        return fail(fault, in, "before the map a family, a seat and chance are wanted");
    }
    return line_is_of_map(in) || fail(fault, in, "here the map is wanted");
}

// The map's lines, in a new block of the persistent arena; empty when they are too long.
str map_lines_read(line_input& in) {
    i64 room = std::min(in.cursor.size, record_map_limit + 1);
    if (room > arena_room(arena_persistent)) {
        return {};
    }
    char* bytes = static_cast<char*>(arena_alloc(arena_persistent, room));
    text_buffer text = {bytes, room, 0, 0};
    bool more = true;
    for (; more && line_is_of_map(in); more = line_next(in)) {
        i64 prefix = in.line.length > 1 && in.line[1] == game_map_prefix[1] ? 2 : 1;
        text_buffer_put_str(text, {in.line.data + prefix, in.line.length - prefix});
        text_buffer_put(text, '\n');
    }
    if (!more) {
        in.line = {};
    }
    return text.length <= record_map_limit ? text_buffer_text(text) : str();
}

bool map_lines_load(line_input& in, const game_head& head, text_fault& fault) {
    i64 mark = arenas[arena_persistent].offset;
    fault.line = in.number;
    str text = map_lines_read(in);
    if (text.length > 0 && record_map_load(head.family, head.cards, text, mark)) {
        return true;
    }
    arena_rewind(arena_persistent, mark);
    fault.reason = "this map is too large";
    return false;
}

bool act_read(str line, recorded_act& act) {
    act = {};
    str word = word_take(line);
    i64 draws = 0;
    if (word == game_computer_word) {
        act.by_computer = true;
        if (!number_take(line, 0, 255, draws)) {
            return false;
        }
        word = word_take(line);
    }
    act.draws = static_cast<u8>(draws);
    i64 kind = place_of(word, game_act_words);
    i64 arc = -1;
    i64 card = no_card;
    constexpr i64 most = std::numeric_limits<i32>::max();
    if (kind == act_move &&
        (!number_take(line, 0, most, arc) ||
         (machine_kind == pushdown_machine && !number_take(line, 0, most, card)))) {
        return false;
    }
    act.what = {static_cast<act_kind>(kind), static_cast<i32>(arc), static_cast<i32>(card)};
    act.in_flight = line == game_flying_word;
    return kind > act_wait && (line.length == 0 || act.in_flight);
}

// Whether the seat, a computer, decides so.
bool computer_agrees(const recorded_act& act) {
    i64 mark = arenas[arena_frame].offset;
    random_state before = random_generator;
    game_act decided = computer_decide();
    bool agrees = decided == act.what && random_draws_since(before) == act.draws;
    random_generator = before;
    arena_rewind(arena_frame, mark);
    return agrees;
}

// Why the act cannot follow on the last one; empty when it can.
str act_fault(const recorded_act& act, bool computers_decide) {
    if (record.act_count == record_act_limit) {
        return "a game has at most 1000000 acts";
    }
    if (!act.in_flight) {
        record_land();
    } else if (act.what.kind == act_move || act.by_computer || turn.move_timer <= 0) {
        return "no stone flies here";
    }
    if (!act_is_open(act.what, act.by_computer)) {
        return "this cannot be done here";
    }
    if (act.by_computer && computers_decide && !computer_agrees(act)) {
        return "the computer does something else here";
    }
    return {};
}

// Does the acts up to the first one that cannot be done.
void acts_read(line_input& in, computer_trust trust, text_fault& fault) {
    const u64 begun = system_time();
    for (bool more = in.line.length > 0; more; more = line_next(in)) {
        recorded_act act;
        bool decide = trust == trust_nobody && system_time() - begun < thinking_time;
        str reason = act_read(in.line, act) ? act_fault(act, decide) : str("this is no act");
        if (reason.length > 0) {
            fail(fault, in, reason);
            return;
        }
        record_append(act);
    }
}

}  // namespace

bool text_is_game(str text) {
    text_cursor cursor = {text.data, text.length, 0};
    return text_has_prefix(cursor, game_text_start);
}

bool game_head_is_right(str text, text_fault& fault) {
    line_input in = {{text.data, text.length, 0}};
    game_head head;
    fault = {};
    return head_read(in, head, fault);
}

bool game_read(str text, computer_trust trust, text_fault& fault) {
    line_input in = {{text.data, text.length, 0}};
    game_head head;
    fault = {};
    if (!head_read(in, head, fault) || !map_lines_load(in, head, fault)) {
        return false;
    }
    fault = {};
    record_seats_take(head.seats, head.seat_count);
    record_entry_select(head.name);
    record_begin(head.start);
    record.own_map = selected_entry < 0;
    record_go(0);
    acts_read(in, trust, fault);
    record_go(std::min(head.position, record.act_count));
    return true;
}
