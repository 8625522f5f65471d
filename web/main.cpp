// The game in a page: the browser calls for its frames.

#include <emscripten.h>
#include <emscripten/html5.h>

#include <sys/stat.h>

#include <cstring>

#include "base/arena.h"
#include "game/game_file.h"
#include "maps/map_work.h"
#include "platform/common/pacing.h"
#include "platform/display.h"
#include "platform/gl/frame.h"
#include "platform/web/canvas.h"
#include "program/frame.h"
#include "program/player_files.h"
#include "render/renderer.h"
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
