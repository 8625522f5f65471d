#include "maps/catalogue_file.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/tidings.h"
#include "maps/file_text.h"
#include "maps/scan.h"
#include "platform/file.h"

namespace {

constexpr i64 entry_size = sizeof(catalogue_entry);

bool entries_read(catalogue& list, str path) {
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

std::string_view view_of(str text) {
    return {text.data, static_cast<std::size_t>(text.length)};
}

bool entry_is_before(const catalogue_entry& a, const catalogue_entry& b) {
    return std::pair(view_of(a.name), view_of(a.path)) <
           std::pair(view_of(b.name), view_of(b.path));
}

bool entry_is_same(const catalogue_entry& a, const catalogue_entry& b) {
    return a.name == b.name && a.path == b.path;
}

catalogue sorted(const catalogue& list) {
    catalogue copy = {};
    catalogue_copy(list, copy);
    std::sort(copy.begin(), copy.end(), entry_is_before);
    return copy;
}

bool is_among(const catalogue& sorted_list, const catalogue_entry& entry) {
    return std::binary_search(sorted_list.begin(), sorted_list.end(), entry, entry_is_before);
}

void entry_write(file_id file, const catalogue_entry& entry) {
    file_write(file, entry.name.length, entry.name.data);
    file_write_byte(file, ' ');
    file_write(file, entry.path.length, entry.path.data);
    file_write_byte(file, '\n');
}

// The list, with what was added to the file and taken out of it meanwhile.
void merged_write(file_id file, const catalogue& list, const catalogue& known,
                  const catalogue& on_file) {
    const catalogue all_known = sorted(known);
    const catalogue all_on_file = sorted(on_file);
    const catalogue all_listed = sorted(list);
    for (const catalogue_entry& entry : list) {
        if (is_among(all_on_file, entry) || !is_among(all_known, entry)) {
            entry_write(file, entry);
        }
    }
    for (const catalogue_entry& entry : on_file) {
        if (!is_among(all_known, entry) && !is_among(all_listed, entry)) {
            entry_write(file, entry);
        }
    }
}

void list_write(file_id file, const catalogue& list) {
    for (const catalogue_entry& entry : list) {
        entry_write(file, entry);
    }
}

// The work of `catalogue_write`, in memory that it may leave taken.
bool file_replace(str path, const catalogue& list, const catalogue& known) {
    catalogue on_file = {};
    bool was_there = file_exists(path);
    if (was_there && !entries_read(on_file, path)) {
        return false;
    }
    bool others_wrote = was_there && !std::equal(on_file.begin(), on_file.end(), known.begin(),
                                                 known.end(), entry_is_same);
    i64 memory = (list.count + known.count + on_file.count) * entry_size;
    if (others_wrote && memory > arena_room(arena_persistent)) {
        return false;
    }
    file_id file = file_open(path, file_mode_write);
    if (others_wrote) {
        merged_write(file, list, known, on_file);
    } else {
        list_write(file, list);
    }
    file_close(file);
    return !file_failed(file);
}

}  // namespace

void catalogue_load(catalogue& list, str path) {
    if (!entries_read(list, path)) {
        failure_tell({"failed to open ", path});
    }
}

bool catalogue_write(str path, const catalogue& list, catalogue& known) {
    i64 mark = arenas[arena_persistent].offset;
    bool written = file_replace(path, list, known);
    arena_rewind(arena_persistent, mark);
    if (written) {
        catalogue_copy(list, known);
    }
    return written;
}

void catalogue_copy(const catalogue& list, catalogue& copy) {
    copy.count = 0;
    dyn_array_reserve(copy, list.count);
    std::copy(list.begin(), list.end(), copy.data);
    copy.count = list.count;
}
