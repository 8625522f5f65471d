#include "editor/history.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <utility>

#include "editor/history_words.h"
#include "maps/map_bytes.h"
#include "maps/model.h"
#include "maps/nimbers.h"

history_record history;

// At the end of a frame the map is written into the spare one of two copies and compared with the
// other. Where they differ, what lies between their common beginning and their common end is the
// step, so that a step takes room by what was changed and time by the whole map: every frame of the
// editor writes and compares it once. To go back or forward puts one run of bytes in place of
// another and reads the map from the result. The steps lie one after the other, each with the size
// of the one before, so that they can be walked both ways and the oldest dropped without a list of
// them.

namespace {

char copies[2][history_map_limit];
char steps[history_steps_capacity];
static_assert(history_steps_capacity > 3 * history_map_limit);  // the largest step has room

// A step in `steps`: this, then the bytes that it took away, then those that it put there.
struct step_head {
    i64 size;         // of the whole step, a multiple of 8
    i64 size_before;  // of the step before, 0 for none
    i64 place;        // where the bytes lie in the map's
    i64 removed;      // bytes
    i64 added;
    selection_record before;
    selection_record after;
    bool other_map;         // the maps on both sides belong to different files
    map_work_record other;  // then what is known of the one that is not under work
};

step_head step_read(i64 at) {
    assert(0 <= at && at + i64{sizeof(step_head)} <= history.used);
    step_head step = {};
    std::memcpy(&step, steps + at, sizeof step);
    return step;
}

void step_write(i64 at, const step_head& step) {
    std::memcpy(steps + at, &step, sizeof step);
}

char* spare_copy() {
    return copies[1 - history.copy];
}

// The spare copy becomes the map as of the latest step.
void spare_copy_take(i64 size) {
    history.copy = 1 - history.copy;
    history.map_size = size;
}

bool spare_copy_is_the_same(i64 size) {
    return size == history.map_size &&
           std::equal(spare_copy(), spare_copy() + size, copies[history.copy]);
}

// Makes room behind `position` by forgetting the oldest steps, some at a time.
void room_make(i64 size) {
    assert(size <= history_steps_capacity);
    history.used = history.position;
    if (history.used + size <= history_steps_capacity) {
        return;
    }
    i64 wanted = std::max(history.used + size - history_steps_capacity, history_steps_capacity / 4);
    i64 forgotten = 0;
    while (forgotten < std::min(wanted, history.used)) {
        forgotten += step_read(forgotten).size;
    }
    history.used -= forgotten;
    history.position = history.used;
    std::memmove(steps, steps + forgotten, static_cast<std::size_t>(history.used));
}

// How many bytes at the beginning of both are the same; they are looked at in large blocks first.
i64 same_head(const char* a, const char* b, i64 size) {
    constexpr i64 block = 4096;
    i64 same = 0;
    while (same + block <= size && std::memcmp(a + same, b + same, block) == 0) {
        same += block;
    }
    return std::mismatch(a + same, a + size, b + same).first - a;
}

// The same at the end of both.
i64 same_tail(const char* a_end, const char* b_end, i64 size) {
    constexpr i64 block = 4096;
    i64 same = block;
    while (same <= size && std::memcmp(a_end - same, b_end - same, block) == 0) {
        same += block;
    }
    same -= block;
    while (same < size && a_end[-1 - same] == b_end[-1 - same]) {
        same += 1;
    }
    return same;
}

// What the spare copy, of that size, has in place of the map as of the latest step.
step_head difference_find(i64 size) {
    const char* map = copies[history.copy];
    const i64 shorter = std::min(history.map_size, size);
    step_head step = {};
    step.place = same_head(map, spare_copy(), shorter);
    const i64 tail = same_tail(map + history.map_size, spare_copy() + size, shorter - step.place);
    step.removed = history.map_size - step.place - tail;
    step.added = size - step.place - tail;
    return step;
}

void step_push(step_head step) {
    step.size = (i64{sizeof step} + step.removed + step.added + 7) & ~i64{7};
    room_make(step.size);
    step.size_before = history.position == 0 ? 0 : history.size_before;
    char* to = steps + history.position;
    std::memcpy(to, &step, sizeof step);
    to = std::copy_n(copies[history.copy] + step.place, step.removed, to + sizeof step);
    std::copy_n(spare_copy() + step.place, step.added, to);
    history.position += step.size;
    history.used = history.position;
    history.size_before = step.size;
}

void steps_forget() {
    history.used = 0;
    history.position = 0;
    history.size_before = 0;
}

void change_record(i64 size) {
    step_head step = difference_find(size);
    step.before = history.selection;
    step.after = selection;
    step.other_map = history.map_left;
    step.other = history.left;
    step_push(step);
    spare_copy_take(size);
}

// In the map as of the latest step, puts `added` bytes from `from` in place of `removed` others.
void map_replace(i64 place, i64 removed, const char* from, i64 added) {
    const char* map = copies[history.copy];
    char* to = std::copy_n(map, place, spare_copy());
    to = std::copy_n(from, added, to);
    std::copy(map + place + removed, map + history.map_size, to);
    spare_copy_take(history.map_size - removed + added);
    map_bytes_read(history_map());
    map_rules_own();
}

// The maps of two files change places.
void maps_exchange(i64 at, step_head& step) {
    std::swap(step.other, map_work);
    step_write(at, step);
    if (machine_kind == state_machine) {
        nimbers_compute();
    }
}

// Goes over the step that lies there.
void step_cross(i64 at, bool forward) {
    step_head step = step_read(at);
    const map_counts before = map_counts_now();
    const char* removed = steps + at + sizeof step;
    const char* added = removed + step.removed;
    if (forward) {
        map_replace(step.place, step.removed, added, step.added);
    } else {
        map_replace(step.place, step.added, removed, step.removed);
    }
    if (step.other_map) {
        maps_exchange(at, step);
    }
    selection = forward ? step.after : step.before;
    history.selection = selection;
    step_tell(forward, step.other_map, before, history_map(), step.place);
}

// Whether the loaded map is the one as of the latest step.
bool map_is_recorded() {
    const i64 size = map_bytes_write(spare_copy(), history_map_limit);
    return size > history_map_limit ? history.map_size == 0 : spare_copy_is_the_same(size);
}

str steps_fault() {
    i64 size_before = 0;
    for (i64 at = 0; at < history.used;) {
        const step_head step = step_read(at);
        const bool fits = step.size >= i64{sizeof step} + step.removed + step.added &&
                          step.size <= history.used - at && step.removed >= 0 && step.added >= 0;
        if (!fits || (at > 0 && step.size_before != size_before)) {
            return "a step of the history is not of its size";
        }
        size_before = step.size;
        at += step.size;
        if (at == history.position && history.size_before != size_before) {
            return "the history stands between two steps";
        }
    }
    return {};
}

}  // namespace

void history_frame_begin() {
    if (history.family != machine_kind) {
        history = {};
        history.family = machine_kind;
    }
    if (history.map_size == 0 || history.map_left) {
        history_frame_end();
    }
}

void history_frame_end() {
    const i64 size = map_bytes_write(spare_copy(), history_map_limit);
    if (size > history_map_limit) {
        steps_forget();
        history.map_size = 0;
    } else if (history.map_size == 0) {
        steps_forget();
        spare_copy_take(size);
    } else if (!spare_copy_is_the_same(size)) {
        change_record(size);
    }
    history.selection = selection;
    history.map_left = false;
}

void history_map_leave() {
    history.map_left = true;
    history.left = map_work;
}

void history_back() {
    if (history.position > 0) {
        const i64 at = history.position - history.size_before;
        const i64 size_before = step_read(at).size_before;
        step_cross(at, false);
        history.position = at;
        history.size_before = size_before;
    }
}

void history_forward() {
    if (history.position < history.used) {
        const i64 at = history.position;
        step_cross(at, true);
        history.size_before = step_read(at).size;
        history.position = at + history.size_before;
    }
}

str history_map() {
    return {copies[history.copy], history.map_size};
}

str history_fault() {
    const bool ordered = 0 <= history.position && history.position <= history.used &&
                         history.used <= history_steps_capacity;
    if (!ordered || history.map_size < 0 || history.map_size > history_map_limit) {
        return "the history is out of its memory";
    }
    if (str fault = steps_fault(); fault.length > 0) {
        return fault;
    }
    return map_is_recorded() ? str() : str("the history has not recorded the map under work");
}
