#include "rules/check.h"

#include <algorithm>
#include <cassert>
#include <cstdint>

#include "base/arena.h"
#include "base/fingerprint.h"
#include "base/time_step.h"
#include "maps/catalogue.h"
#include "maps/model.h"
#include "rules/acts.h"
#include "rules/cards.h"
#include "rules/game_state.h"
#include "rules/random.h"
#include "rules/turns.h"

namespace {

str joined(str a, str b) {
    return str_concat(a, b, arena_frame);
}

str arenas_fault() {
    for (const arena& a : arenas) {
        if (a.offset < 0 || a.offset > a.capacity) {
            return "an arena holds more than it can";
        }
    }
    return {};
}

// An array with its storage, as addresses.
struct storage {
    str name;
    std::uintptr_t begin;
    std::uintptr_t end;
};

// Every array that outlives a frame, in this room and those below.
struct storage_list {
    storage items[8 + 2 * machine_kind_count + player_limit];
    i64 count;
};

template <typename element>
str array_fault(storage_list& list, str name, const dyn_array<element>& array) {
    if (array.count < 0 || array.count > array.capacity) {
        return joined(name, ": more elements than there is room for");
    }
    if (array.arena_id != arena_persistent) {
        return joined(name, ": not in the persistent arena");
    }
    if (array.data == nullptr) {
        return array.capacity == 0 ? str() : joined(name, ": room without storage");
    }
    const arena& home = arenas[arena_persistent];
    auto base = reinterpret_cast<std::uintptr_t>(home.base);
    auto begin = reinterpret_cast<std::uintptr_t>(array.data);
    auto end = begin + static_cast<std::uintptr_t>(array.capacity) * sizeof(element);
    if (begin < base || end > base + static_cast<std::uintptr_t>(home.offset)) {
        return joined(name, ": outside the arena's used part");
    }
    for (i64 i = 0; i < list.count; ++i) {
        if (begin < list.items[i].end && list.items[i].begin < end) {
            return joined(joined(name, " shares storage with "), list.items[i].name);
        }
    }
    list.items[list.count] = {name, begin, end};
    list.count += 1;
    return {};
}

str arrays_fault() {
    storage_list list = {};
    str fault;
    auto check = [&](str name, const auto& array) {
        if (fault.length == 0) {
            fault = array_fault(list, name, array);
        }
    };
    check("states", game_map.states);
    check("transitions", game_map.transitions);
    check("goals", goals);
    check("stones", stones);
    check("deck", deck.cards);
    check("discard pile", discard_pile.cards);
    check("tape", tape);
    check("players", players);
    for (i64 i = 0; fault.length == 0 && i < std::min(players.count, player_limit); ++i) {
        check("hand", players[i].hand);
    }
    for (const catalogue& family : catalogues) {
        check("catalogue", family);
    }
    for (const catalogue& family : known_catalogues) {
        check("known catalogue", family);
    }
    return fault;
}

bool card_exists(card c) {
    return c.colour < card_colour_count && c.shape < card_shape_count && 1 <= c.number &&
           c.number <= card_number_count;
}

str pile_fault(str name, const dyn_array<card>& pile) {
    for (card c : pile) {
        if (!card_exists(c)) {
            return joined(name, ": a card that does not exist");
        }
    }
    return {};
}

str seat_fault(const player& seat) {
    if (seat.is_computer > 1 || seat.strength >= strength_count) {
        return "a seat's kind of player does not exist";
    }
    if (seat.colour_index >= seat_colour_count) {
        return "a seat's colour does not exist";
    }
    return pile_fault("hand", seat.hand);
}

str seats_fault() {
    if (player_count < 1 || player_count > player_limit || players.count > player_limit) {
        return "more or fewer seats than a game has";
    }
    for (const player& seat : players) {
        if (str fault = seat_fault(seat); fault.length > 0) {
            return fault;
        }
    }
    return {};
}

str table_fault() {
    if (tape_head < 0) {
        return "the tape's head stands before the tape";
    }
    const dyn_array<card>* piles[] = {&deck.cards, &discard_pile.cards, &tape};
    const str names[] = {"deck", "discard pile", "tape"};
    for (i64 i = 0; i < 3; ++i) {
        if (str fault = pile_fault(names[i], *piles[i]); fault.length > 0) {
            return fault;
        }
    }
    return {};
}

// A timer ends with the step that brings it to 0 or below.
bool timer_is_sound(f64 timer, f64 longest) {
    return -frame_dt < timer && timer <= longest;
}

str turn_fault() {
    if (!timer_is_sound(turn.move_timer, move_duration)) {
        return "the time of the move is out of its range";
    }
    if (!timer_is_sound(turn.think_timer, think_after_turn)) {
        return "the time to think is out of its range";
    }
    if (turn.human_count < 0 || turn.human_count > player_limit) {
        return "more humans than seats";
    }
    if (random_generator == random_state{}) {
        return "the random generator has no seed";
    }
    return {};
}

str done_fault() {
    if (last_done.what.kind >= act_kind_count || last_done.seat >= player_limit) {
        return "what was done last is no act of a seat";
    }
    if (last_done.what.arc >= game_map.transitions.count || !card_exists(last_done.played)) {
        return "what was done last is a wild move";
    }
    return {};
}

void fingerprint_add_card(u64& fingerprint, card c) {
    fingerprint_add(fingerprint, u64{c.colour} << 16 | u64{c.shape} << 8 | c.number);
}

void fingerprint_add_cards(u64& fingerprint, const dyn_array<card>& cards) {
    for (card c : cards) {
        fingerprint_add_card(fingerprint, c);
    }
    fingerprint_add(fingerprint, static_cast<u64>(cards.count));
}

void fingerprint_add_seat(u64& fingerprint, const player& seat) {
    fingerprint_add(fingerprint,
                    u64{seat.is_computer} << 16 | seat.strength << 8 | seat.colour_index);
    fingerprint_add_cards(fingerprint, seat.hand);
    if (machine_kind == turing_machine) {
        fingerprint_add(fingerprint, static_cast<u64>(seat.goal.target));
        fingerprint_add(fingerprint, u64{seat.goal.measure} << 8 | seat.goal.comparison);
        fingerprint_add_card(fingerprint, seat.goal.card_a);
        fingerprint_add_card(fingerprint, seat.goal.card_b);
    }
}

void fingerprint_add_turn(u64& fingerprint) {
    fingerprint_add(fingerprint, static_cast<u64>(turn.current_player));
    fingerprint_add(fingerprint, u64{turn.winner} << 1 | turn.card_drawn);
    for (u64 word :
         {random_generator.s0, random_generator.s1, random_generator.s2, random_generator.s3}) {
        fingerprint_add(fingerprint, word);
    }
}

}  // namespace

str state_fault() {
    if (machine_kind < 0 || machine_kind >= machine_kind_count) {
        return "the machine kind does not exist";
    }
    str (*const finders[])() = {arenas_fault, arrays_fault, map_fault,
                                seats_fault,  table_fault,  turn_fault};
    for (auto find : finders) {
        if (str fault = find(); fault.length > 0) {
            return fault;
        }
    }
    return {};
}

str game_fault() {
    if (turn.current_player < 0 || turn.current_player >= players.count) {
        return "the seat to move does not exist";
    }
    if (turn.winner != no_winner && turn.winner >= players.count) {
        return "the winner does not exist";
    }
    if (str fault = done_fault(); fault.length > 0) {
        return fault;
    }
    return state_fault();
}

u64 game_fingerprint() {
    u64 fingerprint = static_cast<u64>(machine_kind);
    for (u16 state : stones) {
        fingerprint_add(fingerprint, state);
    }
    fingerprint_add_cards(fingerprint, deck.cards);
    fingerprint_add_cards(fingerprint, discard_pile.cards);
    fingerprint_add_cards(fingerprint, tape);
    fingerprint_add(fingerprint, static_cast<u64>(tape_head));
    for (const player& seat : players) {
        fingerprint_add_seat(fingerprint, seat);
    }
    fingerprint_add_turn(fingerprint);
    return fingerprint;
}
