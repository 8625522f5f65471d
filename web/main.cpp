// The game in a page: the browser calls for its frames, the page for maps that come and go.

#include <emscripten.h>
#include <emscripten/html5.h>

#include <sys/stat.h>

#include <algorithm>
#include <cstring>

#include "base/arena.h"
#include "editor/editor.h"
#include "game/game_file.h"
#include "maps/catalogue.h"
#include "maps/code_limits.h"
#include "maps/family.h"
#include "maps/file_text.h"
#include "maps/map_work.h"
#include "maps/model.h"
#include "maps/reader.h"
#include "maps/writer.h"
#include "platform/common/pacing.h"
#include "platform/display.h"
#include "platform/file.h"
#include "platform/gl/frame.h"
#include "platform/web/canvas.h"
#include "program/frame.h"
#include "program/map_import.h"
#include "program/player_files.h"
#include "render/renderer.h"
#include "rules/screens.h"
#include "web/screen.h"

namespace {

// A step may come this many nanoseconds early, so that a display of 60 pictures a second that is
// not quite even gets one with each.
constexpr i64 early = 4'000'000;

pacing pace = pacing_begin(0);
bool context_lost;

// How many steps are due at a picture, by the browser's clock in milliseconds.
i32 steps_due(f64 now) {
    i64 picture = static_cast<i64>(now * 1e6) + early;
    i32 steps = 0;
    for (; pace.due <= picture; ++steps) {
        pacing_frame_end(pace, picture);
    }
    return steps;
}

// The picture takes the size that the page has room for.
void picture_follow() {
    i32 width = 0;
    i32 height = 0;
    display_get_info(width, height);
    if (width != render_target.width || height != render_target.height) {
        render_target.width = width;
        render_target.height = height;
        render_target_rebuild();
    }
}

// Plays the steps that are due; only the last one's picture is shown.
EM_BOOL frame(f64 now, void*) {
    for (i32 steps = context_lost ? 0 : steps_due(now); steps > 0; --steps) {
        frame_hold(steps > 1);
        picture_follow();
        if (!program_frame()) {
            program_end();
            EM_ASM(page_ended());
            return EM_FALSE;
        }
    }
    screen_tell();
    return EM_TRUE;
}

EM_BOOL context_event(int type, const void*, void*) {
    context_lost = type == EMSCRIPTEN_EVENT_WEBGLCONTEXTLOST;
    if (!context_lost) {
        canvas_context_restored();
        program_restore_gpu();
    }
    return EM_TRUE;
}

void map_list_show() {
    screens = {};
    screens.title_menu_open = false;
    screens.map_list_open = true;
    map_load(catalogue_selected()->path);
}

str text_of(const char* text) {
    return {text, static_cast<i64>(std::strlen(text))};
}

// Ends with a zero byte; lives until the next frame.
const char* c_text(str text) {
    return str_concat(text, str("", 1), arena_frame).data;
}

}  // namespace

// What the page's scripts call, between frames.
extern "C" {

// What links call a family; null past the last one.
EMSCRIPTEN_KEEPALIVE const char* page_family_name(i32 family) {
    return family < machine_kind_count ? c_text(family_names[family]) : nullptr;
}

// Bytes of the largest map file that is read.
EMSCRIPTEN_KEEPALIVE i32 page_text_limit() {
    return static_cast<i32>(text_file_limit);
}

EMSCRIPTEN_KEEPALIVE i32 page_code_length_limit() {
    return static_cast<i32>(code_length_limit);
}

EMSCRIPTEN_KEEPALIVE i32 page_code_bytes_limit() {
    return static_cast<i32>(code_bytes_limit);
}

// The family that a map's file tells, below 0 when it tells none.
EMSCRIPTEN_KEEPALIVE i32 page_file_family(const char* path) {
    i64 mark = arenas[arena_persistent].offset;
    str text;
    i64 family = file_read_all(text_of(path), text) ? map_family_find(text) : no_family;
    arena_rewind(arena_persistent, mark);
    return static_cast<i32>(family);
}

// Takes in a map's file and shows the map in the list. Else says why not and changes nothing.
EMSCRIPTEN_KEEPALIVE bool page_map_take(const char* path, i32 family) {
    i64 mark = arenas[arena_persistent].offset;
    bool taken = map_import(text_of(path), family);
    if (taken) {
        editor_leave();
        map_list_show();
    } else {
        arena_rewind(arena_persistent, mark);
    }
    return taken;
}

// The family of the loaded map, below 0 while the title's own is loaded.
EMSCRIPTEN_KEEPALIVE i32 page_map_family() {
    bool chosen = current_catalogue != nullptr && !screens.title_menu_open;
    return static_cast<i32>(chosen ? machine_kind : no_family);
}

EMSCRIPTEN_KEEPALIVE const char* page_map_name() {
    const catalogue_entry* entry = catalogue_selected();
    return c_text(entry != nullptr ? entry->name : "map");
}

EMSCRIPTEN_KEEPALIVE void page_map_write(const char* path) {
    file_id file = file_open(text_of(path), file_mode_write);
    map_write(
        machine_kind,
        [](void* to, str piece) {
            file_write(*static_cast<file_id*>(to), piece.length, piece.data);
        },
        &file);
    file_close(file);
}

// Another tab's changes have come into the player's files: the lists are read again. The map that
// was selected stays so where it still is.
EMSCRIPTEN_KEEPALIVE void page_files_changed() {
    const catalogue_entry* entry = catalogue_selected();
    str path = entry != nullptr ? entry->path : str();
    for (catalogue& list : catalogues) {
        list.count = 0;
    }
    catalogues_load();
    selected_entry = std::min(selected_entry, catalogue_count() - 1);
    for (i64 i = 0; i < catalogue_count(); ++i) {
        selected_entry = (*current_catalogue)[i].path == path ? i : selected_entry;
    }
}

// The player may be about to leave the page.
EMSCRIPTEN_KEEPALIVE void page_leave() {
    map_work_keep();
    game_file_write();
}

EMSCRIPTEN_KEEPALIVE void page_fullscreen_changed(bool fullscreen) {
    if (render_target.fullscreen != fullscreen) {
        fullscreen_toggle();
    }
}
}

// Called with the player's directory.
int main(int, char** arguments) {
    umask(S_IWGRP | S_IWOTH);  // Emscripten's own would leave no permission to new files
    arenas_create();
    player_files_enter(text_of(arguments[1]), "/shipped", false);
    arenas_free();
    program_start();
    emscripten_set_webglcontextlost_callback(canvas_selector, nullptr, EM_FALSE, context_event);
    emscripten_set_webglcontextrestored_callback(canvas_selector, nullptr, EM_FALSE, context_event);
    EM_ASM(page_started());
    emscripten_request_animation_frame_loop(frame, nullptr);
    emscripten_exit_with_live_runtime();
}
