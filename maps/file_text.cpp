#include "maps/file_text.h"

#include <algorithm>

#include "platform/file.h"

bool file_read_all(str path, str& content) {
    file_id file = file_open(path, file_mode_read);
    i64 size = file_size(file);
    if (file_failed(file) || size > std::min(text_file_limit, arena_room(arena_persistent))) {
        file_close(file);
        return false;
    }
    i64 mark = arenas[arena_persistent].offset;
    char* bytes = static_cast<char*>(arena_alloc(arena_persistent, size));
    file_read(file, size, bytes);
    bool whole = !file_failed(file);
    file_close(file);
    if (!whole) {
        arena_rewind(arena_persistent, mark);
        return false;
    }
    content = {bytes, size};
    return true;
}

bool file_write_all(str path, str content) {
    file_id file = file_open(path, file_mode_write);
    file_write(file, content.length, content.data);
    file_close(file);
    return !file_failed(file);
}
