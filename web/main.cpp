// The game in a page: the browser calls for its frames.

#include <emscripten.h>
#include <emscripten/html5.h>

#include <sys/stat.h>

#include <cstring>

#include "base/arena.h"
#include "game/game_file.h"
#include "maps/map_work.h"
#include "platform/web/canvas.h"
#include "program/daily_maps.h"
#include "program/frame.h"
#include "program/player_files.h"
#include "render/renderer.h"
#include "web/pictures.h"

namespace {

EM_BOOL context_event(int type, const void*, void*) {
    bool lost = type == EMSCRIPTEN_EVENT_WEBGLCONTEXTLOST;
    if (!lost) {
        canvas_context_restored();
        program_restore_gpu();
    }
    pictures_gpu_lost(lost);
    return EM_TRUE;
}

str text_of(const char* text) {
    return {text, static_cast<i64>(std::strlen(text))};
}

}  // namespace

// What the page's scripts call, between frames.
extern "C" {

// The player may be about to leave the page.
EMSCRIPTEN_KEEPALIVE void page_leave() {
    map_work_keep();
    game_file_write();
    page_wake();  // what failed is told
}

EMSCRIPTEN_KEEPALIVE void page_fullscreen_changed(bool fullscreen) {
    if (render_target.fullscreen != fullscreen) {
        fullscreen_toggle();
        page_wake();
    }
}
}

// Called with the player's directory.
int main(int, char** arguments) {
    umask(S_IWGRP | S_IWOTH);  // Emscripten's own would leave no permission to new files
    arenas_create();
    player_files_enter(text_of(arguments[1]), "/shipped", false, day_now());
    arenas_free();
    program_start();
    emscripten_set_webglcontextlost_callback(canvas_selector, nullptr, EM_FALSE, context_event);
    emscripten_set_webglcontextrestored_callback(canvas_selector, nullptr, EM_FALSE, context_event);
    EM_ASM(page_started());
    pictures_begin();
    emscripten_exit_with_live_runtime();
}
