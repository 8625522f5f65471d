#include "game/record.h"

#include <algorithm>
#include <cassert>

#include "ai/computer.h"
#include "maps/catalogue.h"
#include "maps/loading.h"
#include "maps/map_work.h"
#include "maps/writer.h"
#include "rules/cards.h"
#include "rules/random.h"
#include "rules/seats.h"
#include "rules/turns.h"
#include "shown/flight.h"
#include "shown/selection.h"

game_record record;
u16 record_stones[no_index];
char record_map[record_map_limit];
recorded_act record_acts[record_act_limit];

namespace {

void map_piece_take(void*, str piece) {
    i64 room = record_map_limit - record.map_length;
    std::copy_n(piece.data, std::clamp(room, i64{0}, piece.length),
                record_map + std::min(record.map_length, record_map_limit));
    record.map_length += piece.length;
}

void map_note() {
    record.family = machine_kind;
    record.settings = settings;
    record.stone_count = std::min(stones.count, i64{no_index});
    std::copy_n(stones.data, record.stone_count, record_stones);
    map_write(machine_kind, map_piece_take, nullptr);
    const catalogue_entry* entry = catalogue_selected();
    if (entry != nullptr && entry->name.length <= record_name_limit) {
        record.name_length = entry->name.length;
        std::copy_n(entry->name.data, entry->name.length, record.name);
    }
}

void seats_note() {
    for (const player& seat : players) {
        record.seats[record.seat_count] = {seat.is_computer, static_cast<u8>(seat.strength),
                                           seat.colour_index};
        record.seat_count += 1;
    }
}

void act_note(const game_act& act, bool by_computer, i64 draws) {
    record_follow();
    assert(draws <= 255);
    if (!record.whole || record.position == record_act_limit) {
        record.whole = false;
        return;
    }
    record_acts[record.position] = {act, by_computer, turn.move_timer > 0, static_cast<u8>(draws)};
    record.position += 1;
    record.act_count = record.position;
    record.changes += 1;
}

void act_do_again(const recorded_act& act) {
    if (!act.in_flight) {
        record_land();
    }
    for (i64 i = 0; i < act.draws; ++i) {
        random_next();
    }
    act_do(act.what);
}

// With several humans a turn is taken up anew.
void cover_put() {
    turn.turn_revealed = turn.turn_revealed && turn.human_count <= 1;
}

}  // namespace

void record_follow() {
    if (record.deal == last_deal.number) {
        return;
    }
    record_begin(last_deal.start);
    record.trial = catalogue_selected() == nullptr && map_work_is_played();
}

void record_begin(const deal_start& start) {
    i64 changes = record.changes;
    record = {};
    record.deal = last_deal.number;
    record.changes = changes + 1;
    record.whole = true;
    record.start = start;
    map_note();
    seats_note();
}

bool record_stays() {
    return record.seat_count > 0 && !record.trial;
}

void record_take(const game_act& act) {
    assert(act_is_open(act, false));
    act_note(act, false, 0);
    act_do(act);
}

void record_take_computer() {
    random_state before = random_generator;
    game_act act = computer_decide();
    if (act.kind != act_wait) {
        act_note(act, true, random_draws_since(before));
        act_do(act);
    }
}

void record_restart() {
    if (!record.own_map) {
        game_start();
        record_follow();
        return;
    }
    std::copy_n(record_stones, record.stone_count, stones.data);
    game_start_loaded();
    record_begin(last_deal.start);
    record.own_map = true;
}

void record_append(const recorded_act& act) {
    assert(record.whole && record.act_count < record_act_limit);
    record_acts[record.act_count] = act;
    record.act_count += 1;
    record.position = record.act_count;
    act_do_again(act);
}

void record_land() {
    if (turn.move_timer > 0) {
        turn.move_timer = 0;
        turn_end();
    }
    deck_refill();
}

void record_show(i64 position) {
    assert(record.whole && 0 <= position && position <= record.act_count);
    std::copy_n(record_stones, record.stone_count, stones.data);
    humans_count();
    game_deal_again(record.start);
    for (i64 i = 0; i < position; ++i) {
        act_do_again(record_acts[i]);
    }
    record_land();
    selection = {};
    flight = {};
    turn.think_timer = current_seat().is_computer ? think_after_turn : 0;
    cover_put();
}

void record_show_act(i64 index) {
    assert(0 <= index && index < record.act_count);
    act_do_again(record_acts[index]);
}

void record_go(i64 position) {
    record_show(position);
    record.position = position;
    record.changes += 1;
}

bool record_resume() {
    i64 mark = arenas[arena_persistent].offset;
    if (!record.whole || record.map_length > record_map_limit ||
        record.map_length > arena_room(arena_persistent)) {
        return false;
    }
    str text = str_copy({record_map, record.map_length});
    if (!record_map_load(record.family, record.settings, text, mark)) {
        return false;
    }
    record_seats_take(record.seats, record.seat_count);
    record_entry_select({record.name, record.name_length});
    record.own_map = catalogue_selected() == nullptr;
    record.deal = last_deal.number;
    record_go(record.position);
    return true;
}

bool record_map_load(i64 family, const map_settings& cards, str text, i64 mark) {
    i64 family_before = machine_kind;
    map_settings settings_before = settings;
    machine_kind = family;
    settings = cards;
    if (!map_take(text, mark)) {
        machine_kind = family_before;
        settings = settings_before;
        return false;
    }
    if (stones.count == 0) {
        dyn_array_push(stones, 0);
        dyn_array_push(stones, 0);
    }
    return true;
}

void record_seats_take(const record_seat* seats, i64 count) {
    player_count = count;
    seats_adjust();
    for (i64 i = 0; i < count; ++i) {
        players[i].is_computer = seats[i].is_computer;
        players[i].strength = seats[i].strength;
        seat_colour_set(players[i], seats[i].colour_index);
    }
}

void record_entry_select(str name) {
    current_catalogue = &catalogues[machine_kind];
    const catalogue_entry* entry = catalogue_find(name);
    selected_entry = entry != nullptr ? entry - current_catalogue->data : -1;
}

str record_fault() {
    if (record.position < 0 || record.position > record.act_count ||
        record.act_count > record_act_limit) {
        return "the record stands outside of its acts";
    }
    if (record.seat_count > player_limit || record.stone_count > no_index ||
        record.name_length > record_name_limit) {
        return "the record counts more than it has room for";
    }
    if (record.position == 0) {
        return {};
    }
    const game_act& act = record_acts[record.position - 1].what;
    bool known = act_wait < act.kind && act.kind < act_kind_count;
    return known && act.arc < game_map.transitions.count ? str() : str("the record has a wild act");
}

bool record_is_human(i64 index) {
    assert(0 <= index && index < record.act_count);
    return !record_acts[index].by_computer;
}
