#include "maps/catalogue_merge.h"

#include <algorithm>
#include <bit>

// The entries of all three lists go into one table by their bytes, in which each has a mark for
// every list that holds it; what happened to an entry in the other list can then be read from its
// marks. Three passes, in time proportional to the lists, with no order needed and none changed.

namespace {

enum holder : u8 { held_by_list = 1, held_by_known = 2, held_by_other = 4 };

struct place {
    const catalogue_entry* entry;  // null while the place is free
    u8 holders;                    // those of the three that have the entry
};

// All entries, each at the place that its bytes tell or, when that is taken, the next free one.
struct entry_table {
    place* places;
    u64 count;  // a power of two; at least half of the places stay free
};

u64 entry_hash(const catalogue_entry& entry) {
    u64 hash = 0xcbf29ce484222325;  // FNV-1a
    for (str part : {entry.name, str(" "), entry.path}) {
        for (char byte : part) {
            hash = (hash ^ static_cast<u8>(byte)) * 0x100000001b3;
        }
    }
    return hash;
}

place& place_of(entry_table& table, const catalogue_entry& entry) {
    u64 at = entry_hash(entry);
    while (true) {
        place& found = table.places[at & (table.count - 1)];
        if (found.entry == nullptr || *found.entry == entry) {
            return found;
        }
        at += 1;
    }
}

void entries_enter(entry_table& table, const catalogue& list, holder who) {
    for (const catalogue_entry& entry : list) {
        place& found = place_of(table, entry);
        found.entry = &entry;
        found.holders |= who;
    }
}

}  // namespace

bool catalogue_merge(const catalogue& list, const catalogue& known, const catalogue& other,
                     catalogue& merged) {
    merged = {};
    const i64 most = list.count + other.count;
    const u64 places = std::bit_ceil(2 * static_cast<u64>(most + known.count) + 1);
    const i64 table_size = static_cast<i64>(places * sizeof(place));
    const i64 memory = most * static_cast<i64>(sizeof(catalogue_entry)) + table_size;
    if (memory > arena_room(arena_persistent)) {
        return false;
    }
    dyn_array_reserve(merged, most);
    const i64 mark = arenas[arena_persistent].offset;
    entry_table table = {static_cast<place*>(arena_alloc(arena_persistent, table_size)), places};
    std::fill(table.places, table.places + places, place{});
    entries_enter(table, list, held_by_list);
    entries_enter(table, known, held_by_known);
    entries_enter(table, other, held_by_other);
    for (const catalogue_entry& entry : list) {
        if (place_of(table, entry).holders != (held_by_list | held_by_known)) {
            dyn_array_push(merged, entry);
        }
    }
    for (const catalogue_entry& entry : other) {
        if (place_of(table, entry).holders == held_by_other) {
            dyn_array_push(merged, entry);
        }
    }
    arena_rewind(arena_persistent, mark);
    return true;
}
