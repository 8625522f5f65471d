#include "maps/map_work.h"

#include <cassert>
#include <cstring>

#include "base/fingerprint.h"
#include "maps/kept.h"
#include "maps/map_bytes.h"
#include "maps/model.h"
#include "maps/nimbers.h"

map_work_record map_work;

namespace {

using ::print_add;

void print_add(u64& print, f64 value) {
    u64 bits;
    std::memcpy(&bits, &value, sizeof bits);
    print_add(print, bits);
}

void print_add(u64& print, u16 value) {
    print_add(print, u64{value});
}

void print_add(u64& print, card c) {
    print_add(print, u64{c.colour} << 16 | u64{c.shape} << 8 | c.number);
}

void print_add(u64& print, const goal& g) {
    print_add(print, u64{g.measure} << 8 | g.comparison);
    print_add(print, static_cast<u64>(g.target));
    print_add(print, g.card_a);
    print_add(print, g.card_b);
}

void print_add(u64& print, const map_state& s) {
    print_add(print, s.x);
    print_add(print, s.y);
    print_add(print, u64{s.accepting});
}

void print_add(u64& print, const transition& arc) {
    print_add(print, u64{arc.from} << 32 | u64{arc.to} << 16 | static_cast<u16>(arc.bend));
    print_add(print, f64{arc.label_dx});
    print_add(print, f64{arc.label_dy});
    for (char byte : arc.rule) {
        print_add(print, u64{static_cast<u8>(byte)});
    }
    print_add(print, static_cast<u64>(arc.rule.length));
}

template <typename element>
void print_add(u64& print, const dyn_array<element>& list) {
    for (const element& e : list) {
        print_add(print, e);
    }
    print_add(print, static_cast<u64>(list.count));
}

// Maps of different texts have different fingerprints.
u64 map_print() {
    u64 print = 0;
    print_add(print, game_map.origin_x);
    print_add(print, game_map.origin_y);
    print_add(print, game_map.scale);
    for (i64 value :
         {settings.deck_copies, settings.deck_colours, settings.deck_shapes, settings.deck_numbers,
          settings.hand_size, settings.tape_length, i64{settings.win_mode}}) {
        print_add(print, static_cast<u64>(value));
    }
    print_add(print, goals);
    print_add(print, stones);
    print_add(print, game_map.states);
    print_add(print, game_map.transitions);
    return print;
}

void changed_map_keep() {
    const u64 print = map_print();
    if (print != map_work.print && print != map_work.kept_print) {
        kept_map_put(map_work.path, map_work.family);
        map_work.kept_print = print;
    }
}

}  // namespace

void map_work_begin() {
    map_work = {};
    map_work.open = true;
    map_work.family = machine_kind;
    map_work_is_saved({});
}

void map_work_is_saved(str path) {
    if (map_work.open && map_work.aside.length == 0) {
        map_work.path = path;
        map_work.print = map_print();
    }
}

void map_work_give_way() {
    if (map_work.open && map_work.aside.length == 0) {
        changed_map_keep();
    }
}

void map_work_keep() {
    if (map_work.aside.length == 0) {
        map_work_give_way();
        return;
    }
    const i64 mark = arenas[arena_persistent].offset;
    const whole_map played = map_exchange({});
    map_bytes_read(map_work.aside);
    changed_map_keep();
    map_exchange(played);
    arena_rewind(arena_persistent, mark);
}

void map_work_end() {
    if (map_work.aside.length > 0) {
        // Into the lists that held it before: the program may end because memory has run out.
        map_bytes_read(map_work.aside);
        map_work.aside = {};
    }
    map_work_give_way();
    map_work.open = false;
}

bool map_work_is_played() {
    return map_work.aside.length > 0 && machine_kind == map_work.family;
}

void map_work_lay_aside(str bytes) {
    assert(map_work.open && map_work.aside.length == 0 && bytes.length > 0);
    map_work.aside = bytes;
}

void map_work_load() {
    assert(map_work_is_played());
    map_bytes_read(map_work.aside);
    if (machine_kind == state_machine) {
        nimbers_compute();
    }
}

void map_work_take_back() {
    machine_kind = map_work.family;
    map_work_load();
    map_rules_own();
    map_work.aside = {};
}

void map_work_finish() {
    map_work_end();
    waiting_maps_end();
}
