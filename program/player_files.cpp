#include "program/player_files.h"

#include <cassert>

#include "base/text_builder.h"
#include "maps/catalogue.h"
#include "maps/file_text.h"
#include "maps/scan.h"
#include "platform/directory.h"
#include "platform/file.h"
#include "platform/folder.h"

namespace {

constexpr str resources = "resources";
constexpr str shipped_record = ".shipped";

// As seen from the program's own directory.
constexpr str data_places[] = {QUORREL_DATA_INSTALLED, QUORREL_DATA_BUILT};

str path_join(str folder, str name) {
    str start = str_concat(folder, "/", arena_persistent);
    return str_concat(start, name, arena_persistent);
}

bool has_line(str text, str wanted) {
    text_cursor cursor = {text.data, text.length, 0};
    for (str line; text_next_line(cursor, line);) {
        if (line == wanted) {
            return true;
        }
    }
    return false;
}

void put_line(text_builder& text, str line) {
    text_builder_put_str(text, line);
    text_builder_put(text, '\n');
}

// What ships without the entries that the player removed since `before` shipped, then what the
// player added.
str catalogue_merged(str shipped, str before, str player, bool restore) {
    text_builder merged = {};
    text_cursor cursor = {shipped.data, shipped.length, 0};
    for (str line; text_next_line(cursor, line);) {
        if (restore || has_line(player, line) || !has_line(before, line)) {
            put_line(merged, line);
        }
    }
    cursor = {player.data, player.length, 0};
    for (str line; text_next_line(cursor, line);) {
        if (!has_line(before, line) && !has_line(shipped, line)) {
            put_line(merged, line);
        }
    }
    return text_builder_text(merged);
}

// A file that cannot be read whole is not replaced, nor is one that is as it should be.
bool file_update(str path, str content) {
    str old;
    if (file_exists(path) && (!file_read_all(path, old) || old == content)) {
        return old == content;
    }
    return file_write_all(path, content);
}

// Brings one catalogue up to the one that ships.
void catalogue_refresh(str path, str data, bool restore) {
    assert(data.length > 0);
    str record = path_join(shipped_record, str_after_last(path, '/'));
    str shipped, before, player;
    if (!file_read_all(path_join(data, path), shipped)) {
        return;
    }
    if (file_exists(path)) {
        if (!file_read_all(path, player)) {
            return;
        }
        file_read_all(record, before);
    }
    if (file_update(path, catalogue_merged(shipped, before, player, restore))) {
        file_update(record, shipped);
    }
}

}  // namespace

str shipped_data_find() {
    str program = directory_of_program();
    for (str place : data_places) {
        str data = path_join(program, place);
        if (directory_exists(path_join(data, resources))) {
            return data;
        }
    }
    return {};
}

bool player_files_enter(str directory, str data, bool restore) {
    if (directory.length > 0 && !directory_enter(directory)) {
        return false;
    }
    bool is_player_directory = directory_exists(shipped_record);
    if (directory_exists(resources) && !is_player_directory) {
        return true;
    }
    if (directory.length == 0 && !is_player_directory &&
        !directory_enter(directory_of_user("quorrel"))) {
        return false;
    }
    if (data.length > 0) {
        folder_lock(resources);
        folder_sweep(shipped_record);
        for (i64 family = 0; family < machine_kind_count; ++family) {
            catalogue_refresh(catalogue_path(family), data, restore);
        }
        folder_unlock();
        file_set_fallback(data);
    }
    return true;
}
