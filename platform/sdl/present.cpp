// Showing frames, sixty of them a second: the game advances 1/60 s with each.

#include <SDL.h>
#include <poll.h>

#include <algorithm>
#include <chrono>
#include <thread>

#include "platform/common/pacing.h"
#include "platform/gl/frame.h"
#include "platform/gpu.h"
#include "platform/sdl/window.h"
#include "platform/sdl/window_manager.h"
#include "platform/system.h"

namespace {

using clock_type = std::chrono::steady_clock;

i64 now() {
    return std::chrono::nanoseconds(clock_type::now().time_since_epoch()).count();
}

void sleep_until(i64 time) {
    std::this_thread::sleep_until(clock_type::time_point(std::chrono::nanoseconds(time)));
}

// Waits until a time, or until the display server has something for the next poll.
void event_wait(i64 time) {
    constexpr i64 second = 1'000'000'000;
    i64 rest = std::max(time - now(), i64{0});
    timespec most = {rest / second, rest % second};
    pollfd events = {display_connection(window), POLLIN, 0};
    ppoll(&events, 1, &most, nullptr);
}

pacing pace = pacing_begin(now());

}  // namespace

void present_display_changed() {
    SDL_DisplayMode mode = {};
    SDL_GetDesktopDisplayMode(SDL_GetWindowDisplayIndex(window), &mode);
    pacing_set_display(pace, mode.refresh_rate);
    SDL_GL_SetSwapInterval(pace.in_step ? 1 : 0);
}

// The pause is part of the wait in `pipeline_present`, behind the picture: so the player sees it
// earlier, and a frame that is late has none.
void system_sleep(u32) {}

void pipeline_present() {
    if (frame_is_drawn()) {
        SDL_GL_SwapWindow(window);
        sleep_until(pacing_frame_end(pace, now()));
    } else {
        i64 due = pacing_frame_end(pace, now());
        sleep_until(pacing_earliest(pace));
        event_wait(due);
    }
    bool has_time = pace.has_time || frame_is_begun();
    frame_hold(!has_time || !window_can_be_seen());
}
