#include "maps/loading.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "base/tidings.h"
#include "maps/file_text.h"
#include "maps/map_work.h"
#include "maps/model.h"
#include "maps/reader.h"
#include "maps/records.h"

// A large text is read twice: first for how many records it has, by which it is known whether the
// lists it needs fit, then into the lists, which have their room by then. A small one fits however
// its lists grow. Both times take time in proportion to the text.

namespace {

// While lists grow, what they leave behind included, the records of a text take at most that many
// times its bytes.
constexpr i64 growing_records_per_byte = 26;
constexpr i64 room_for_play = i64{16} * 1024 * 1024;  // bytes that a map must leave

// By `record_kind`.
using record_counts = std::array<i64, record_kind_count>;

record_counts records_count(str text) {
    record_counts counted = {};
    records_read(
        text,
        [](void* to, record_kind kind, const record_value*, i64) {
            (*static_cast<record_counts*>(to))[kind] += 1;
        },
        &counted);
    return counted;
}

// Elements that the records of a text come to.
struct list_counts {
    i64 states;
    i64 transitions;
    i64 stones;
    i64 goals;
};

list_counts lists_count(str text) {
    const record_counts counted = records_count(text);
    return {counted[record_accepting] + counted[record_plain] + counted[record_plain_too],
            counted[record_transition], counted[record_stone], counted[record_goal]};
}

// Bytes of the block that the text will lie in.
i64 text_capacity_for(str text) {
    return text.length <= game_map.text_capacity
               ? text.length
               : std::max(text.length, 2 * game_map.text_capacity);
}

// Bytes of the block that a list needs to hold `count` elements.
template <typename element>
i64 list_growth(const dyn_array<element>& list, i64 count) {
    i64 size = sizeof(element);
    return count <= list.capacity ? 0 : std::max(count, 2 * list.capacity) * size;
}

// Whether the arena has room for the map of a text that lies in it already. The records of a large
// one are counted for that.
bool map_fits(str text, list_counts& counted) {
    const i64 room = arena_room(arena_persistent) - room_for_play;
    if (text.length <= room / growing_records_per_byte) {
        return true;
    }
    counted = lists_count(text);
    const i64 nimber_count = machine_kind == state_machine ? counted.states : 0;
    const dyn_array<u8> nimbers = {game_map.nimbers, 0, game_map.nimber_capacity, arena_persistent};
    const i64 needed = list_growth(game_map.states, counted.states) +
                       list_growth(game_map.transitions, counted.transitions) +
                       list_growth(stones, counted.stones) + list_growth(goals, counted.goals) +
                       list_growth(nimbers, nimber_count) + text_capacity_for(text) - text.length;
    return needed <= std::max(room, i64{0});
}

// A text that was read into a new block at `mark` stays there while there is plenty of memory. Else
// it moves into the block of the map before, whose rules are gone, so that maps can be loaded again
// and again for ever.
str text_settle(str text, i64 mark) {
    if (arena_has_plenty()) {
        game_map.text = const_cast<char*>(text.data);
        game_map.text_capacity = text.length;
        return text;
    }
    arena_rewind(arena_persistent, mark);
    if (text.length > game_map.text_capacity) {
        game_map.text_capacity = text_capacity_for(text);
        game_map.text = static_cast<char*>(arena_alloc(arena_persistent, game_map.text_capacity));
    }
    if (text.length > 0) {
        std::memmove(game_map.text, text.data, static_cast<std::size_t>(text.length));
    }
    return {game_map.text, text.length};
}

}  // namespace

bool map_take(str text, i64 mark) {
    list_counts counted = {};
    if (!map_fits(text, counted)) {
        arena_rewind(arena_persistent, mark);
        return false;
    }
    map_work_give_way();
    text = text_settle(text, mark);
    dyn_array_reserve(game_map.states, counted.states);
    dyn_array_reserve(game_map.transitions, counted.transitions);
    dyn_array_reserve(stones, counted.stones);
    dyn_array_reserve(goals, counted.goals);
    map_read(text);
    return true;
}

void map_load(str path) {
    i64 mark = arenas[arena_persistent].offset;
    str text;
    if (!file_read_all(path, text) || !map_take(text, mark)) {
        failure_tell({"failed to load map: ", path});
        return;
    }
    map_work_is_saved(path);
}
