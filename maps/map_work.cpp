#include "maps/map_work.h"

#include <cassert>

#include "base/fingerprint.h"
#include "maps/kept.h"
#include "maps/map_bytes.h"
#include "maps/model.h"
#include "maps/nimbers.h"
#include "maps/writer.h"

map_work_record map_work;

namespace {

// Of the text that a file with it would hold.
u64 map_fingerprint() {
    u64 fingerprint = 0;
    map_write(
        map_work.family,
        [](void* to, str piece) { fingerprint_add(*static_cast<u64*>(to), piece); }, &fingerprint);
    return fingerprint;
}

void changed_map_keep() {
    const u64 fingerprint = map_fingerprint();
    if (fingerprint != map_work.fingerprint && fingerprint != map_work.kept_fingerprint) {
        kept_map_put(map_work.path, map_work.family);
        map_work.kept_fingerprint = fingerprint;
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
        map_work.fingerprint = map_fingerprint();
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
    kept_end();
}
