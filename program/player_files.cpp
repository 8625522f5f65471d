#include "program/player_files.h"

#include <algorithm>

#include "maps/catalogue.h"
#include "maps/catalogue_merge.h"
#include "platform/directory.h"
#include "platform/file.h"
#include "platform/folder.h"
#include "program/daily_maps.h"
#include "render/font.h"

namespace {

constexpr str shipped_record = ".shipped";

// As seen from the program's own directory.
constexpr str data_places[] = {QUORREL_DATA_INSTALLED, QUORREL_DATA_BUILT};

str path_join(str folder, str name) {
    str start = str_concat(folder, "/", arena_persistent);
    return str_concat(start, name, arena_persistent);
}

// A list that the player's directory lacks is empty. False when one is there and cannot be read.
bool own_list_read(catalogue& list, str path) {
    return !file_is_own(path) || catalogue_read(list, path);
}

bool list_update(str path, const catalogue& before, const catalogue& now) {
    bool same = std::equal(before.begin(), before.end(), now.begin(), now.end());
    return same || catalogue_replace(path, now);
}

// Brings one catalogue up to the one that ships. While one of the three cannot be read it stays as
// it is, since what the player has removed is not known.
void catalogue_refresh(i64 family, str data, bool restore) {
    str path = catalogue_path(family);
    str record = path_join(shipped_record, str_after_last(path, '/'));
    catalogue shipped = {}, before = {}, player = {};
    if (!catalogue_read(shipped, path_join(data, path)) || !own_list_read(player, path) ||
        !own_list_read(before, record)) {
        return;
    }
    if (file_is_own(daily_map_path(family))) {
        dyn_array_push(shipped, {"today", daily_map_path(family)});
    }
    if (!file_is_own(path)) {
        before = {};  // nothing was removed from a list that is not there
    }
    catalogue now = {}, complete = {};
    bool merged = catalogue_merge(player, before, shipped, now) &&
                  (!restore || catalogue_merge(now, {}, shipped, complete));
    if (merged && list_update(path, player, restore ? complete : now)) {
        list_update(record, before, shipped);
    }
}

}  // namespace

bool directory_is_whole(str directory) {
    return file_is_own(path_join(directory, font_path));
}

str shipped_data_find() {
    str program = directory_of_program();
    for (str place : data_places) {
        str data = path_join(program, place);
        if (directory_is_whole(data)) {
            return data;
        }
    }
    return {};
}

bool player_files_enter(str directory, str data, bool restore, i64 day) {
    if (directory.length > 0 && !directory_enter(directory)) {
        return false;
    }
    bool is_player_directory = directory_exists(shipped_record);
    if (!is_player_directory && directory_is_whole(".")) {
        return true;
    }
    if (directory.length == 0 && !is_player_directory &&
        !directory_enter(directory_of_user("quorrel"))) {
        return false;
    }
    if (data.length > 0) {
        folder_lock(catalogue_folder);
        folder_sweep(shipped_record);
        if (day != no_day) {
            daily_maps_write(day);
        }
        for (i64 family = 0; family < machine_kind_count; ++family) {
            catalogue_refresh(family, data, restore);
        }
        folder_unlock();
        file_set_fallback(data);
    }
    return true;
}
