#include "web/pictures.h"

#include <emscripten.h>
#include <emscripten/html5.h>

#include "base/time_step.h"
#include "platform/common/pacing.h"
#include "platform/display.h"
#include "platform/gl/frame.h"
#include "program/frame.h"
#include "program/rest.h"
#include "render/renderer.h"
#include "web/screen.h"

namespace {

// A step may come this many nanoseconds early, so that a display of 60 pictures a second that is
// not quite even gets one with each.
constexpr i64 early = 4'000'000;

enum class asking : u8 {
    goes_on,  // for one picture after the other
    rests,
    begins_again,  // the picture asked for is the first since a rest
};

pacing pace = pacing_begin(0);
asking now_asking = asking::goes_on;
bool gpu_is_lost;

// How many steps are due at a picture. After a rest it is one, as if the game had not rested.
i32 steps_due(i64 picture) {
    if (now_asking == asking::begins_again) {
        rest_pass(pacing_wake(pace, picture));
        now_asking = asking::goes_on;
    }
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

void wake(void*) {
    page_wake();
}

// Whether no other picture is asked for until something happens, or its time has come.
bool rest_begin() {
    i64 frames = frame_is_due() ? 0 : rest_frames();
    if (frames == 0) {
        return false;
    }
    now_asking = asking::rests;
    if (frames < frames_endless) {
        emscripten_set_timeout(wake, static_cast<f64>(frames) * frame_dt * 1e3, nullptr);
    }
    return true;
}

// Plays the steps that are due at a picture, by the browser's clock in milliseconds; only the last
// one's is shown.
EM_BOOL picture(f64 now, void*) {
    i64 time = static_cast<i64>(now * 1e6) + early;
    const i32 steps = gpu_is_lost ? 0 : steps_due(time);
    for (i32 left = steps; left > 0; --left) {
        frame_hold(left > 1);
        picture_follow();
        if (!program_frame()) {
            program_end();
            EM_ASM(page_ended());
            return EM_FALSE;
        }
    }
    screen_tell();
    return steps > 0 && rest_begin() ? EM_FALSE : EM_TRUE;
}

}  // namespace

void pictures_begin() {
    emscripten_request_animation_frame_loop(picture, nullptr);
}

void pictures_gpu_lost(bool lost) {
    gpu_is_lost = lost;
    page_wake();
}

EMSCRIPTEN_KEEPALIVE void page_wake() {
    if (now_asking == asking::rests) {
        now_asking = asking::begins_again;
        pictures_begin();
    }
}
