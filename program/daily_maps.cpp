#include "program/daily_maps.h"

#include <ctime>

#include "base/arena.h"
#include "base/text_builder.h"
#include "base/tidings.h"
#include "making/days.h"
#include "maps/file_text.h"
#include "maps/model.h"
#include "platform/file.h"
#include "platform/folder.h"

namespace {

constexpr i64 day_seconds = 24 * 60 * 60;

constexpr str daily_map_paths[machine_kind_count] = {
    "daily/state_machines/today",
    "daily/pushdown_machines/today",
    "daily/turing_machines/today",
};

// No start waits for the disk: a map that is lost is made anew.
bool quick_write(str path, str content) {
    const file_id file = file_open(path, file_mode_quick);
    file_write(file, content.length, content.data);
    file_close(file);
    return !file_failed(file);
}

bool daily_map_write(i64 family, i64 day) {
    arena_rewind(arena_frame, 0);
    text_builder text = text_builder_make(arena_frame);
    text_builder name = text_builder_make(arena_frame);
    map_make(day_wish(family, day), text, name);
    const str made = text_builder_text(text);
    const i64 mark = arenas[arena_persistent].offset;
    str there;
    const bool is_there = file_read_all(daily_map_path(family), there) && there == made;
    arena_rewind(arena_persistent, mark);
    return is_there || quick_write(daily_map_path(family), made);
}

}  // namespace

i64 day_now() {
    const i64 day = i64{std::time(nullptr)} / day_seconds;
    if (first_day <= day && day <= last_day) {
        return day;
    }
    failure_tell({"no new map of the day: the clock stands before 2020 or after 2099"});
    return no_day;
}

str daily_map_path(i64 family) {
    return daily_map_paths[family];
}

void daily_maps_write(i64 day) {
    folder_sweep("daily");
    for (i64 family = 0; family < machine_kind_count; ++family) {
        if (!daily_map_write(family, day)) {
            failure_tell({"failed to write the map of the day: ", daily_map_path(family)});
            return;
        }
    }
}
