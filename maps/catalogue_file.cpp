#include "maps/catalogue_file.h"

#include <algorithm>

#include "base/tidings.h"
#include "maps/catalogue_merge.h"
#include "maps/file_text.h"
#include "maps/scan.h"
#include "platform/file.h"

namespace {

constexpr i64 entry_size = sizeof(catalogue_entry);

// The work of `catalogue_write`, in memory that it may leave taken.
bool merged_write(str path, const catalogue& list, const catalogue& known) {
    catalogue on_file = {};
    catalogue merged = {};
    bool is_there = file_exists(path);
    if (is_there && !catalogue_read(on_file, path)) {
        return false;
    }
    return catalogue_merge(list, known, is_there ? on_file : known, merged) &&
           catalogue_replace(path, merged);
}

}  // namespace

void catalogue_copy(const catalogue& list, catalogue& copy) {
    copy.count = 0;
    dyn_array_reserve(copy, list.count);
    std::copy(list.begin(), list.end(), copy.data);
    copy.count = list.count;
}

bool catalogue_read(catalogue& list, str path) {
    i64 mark = arenas[arena_persistent].offset;
    str text;
    if (!file_read_all(path, text)) {
        return false;
    }
    i64 most = std::count(text.begin(), text.end(), ' ') + 1;
    i64 memory = 2 * most * entry_size;
    if (memory > std::min(catalogue_memory_limit - text.length, arena_room(arena_persistent))) {
        arena_rewind(arena_persistent, mark);
        return false;
    }
    dyn_array_reserve(list, list.count + most);
    text_cursor cursor = {text.data, text.length, 0};
    while (cursor.position < cursor.size) {
        catalogue_entry entry;
        entry.name = text_scan_until(cursor, ' ');
        cursor.position += 1;
        entry.path = text_scan_until(cursor, '\n');
        cursor.position += 1;
        dyn_array_push(list, entry);
    }
    return true;
}

void catalogue_load(catalogue& list, str path) {
    if (!catalogue_read(list, path)) {
        failure_tell({"failed to open ", path});
    }
}

bool catalogue_replace(str path, const catalogue& list) {
    file_id file = file_open(path, file_mode_write);
    for (const catalogue_entry& entry : list) {
        file_write(file, entry.name.length, entry.name.data);
        file_write_byte(file, ' ');
        file_write(file, entry.path.length, entry.path.data);
        file_write_byte(file, '\n');
    }
    file_close(file);
    return !file_failed(file);
}

bool catalogue_write(str path, const catalogue& list, catalogue& known) {
    i64 mark = arenas[arena_persistent].offset;
    bool written = merged_write(path, list, known);
    arena_rewind(arena_persistent, mark);
    if (written) {
        catalogue_copy(list, known);
    }
    return written;
}
