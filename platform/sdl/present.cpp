// Showing frames, sixty of them a second: the game advances 1/60 s with each.

#include <SDL.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <thread>

#include "platform/common/pacing.h"
#include "platform/display.h"
#include "platform/gl/frame.h"
#include "platform/gpu.h"
#include "platform/sdl/window.h"
#include "platform/sdl/window_manager.h"
#include "platform/system.h"

namespace {

using clock_type = std::chrono::steady_clock;

constexpr i64 millisecond = 1'000'000;  // nanoseconds
constexpr i64 longest_wait = 1'000;     // milliseconds
constexpr i64 pad_pause = 16;           // milliseconds

i64 now() {
    return std::chrono::nanoseconds(clock_type::now().time_since_epoch()).count();
}

void sleep_until(i64 time) {
    std::this_thread::sleep_until(clock_type::time_point(std::chrono::nanoseconds(time)));
}

// Waits so many milliseconds for an event. Where there is a gamepad, SDL would look a thousand
// times a second.
bool event_comes(i64 most) {
    if (SDL_NumJoysticks() <= 0) {
        return SDL_WaitEventTimeout(nullptr, static_cast<int>(most)) != 0;
    }
    SDL_Delay(static_cast<Uint32>(std::min(most, pad_pause)));
    SDL_PumpEvents();
    return SDL_HasEvents(SDL_FIRSTEVENT, SDL_POLLSENTINEL - 1) != SDL_FALSE;
}

// Waits until a time, or until the next poll finds something. SDL looks for signals before it
// waits: one that comes just then is found a second later.
void event_wait(i64 time) {
    for (i64 rest = time - now(); rest >= millisecond; rest = time - now()) {
        if (event_comes(std::min(rest / millisecond, longest_wait))) {
            return;
        }
    }
    sleep_until(time);
}

pacing pace = pacing_begin(now());
bool is_ornament;  // what moves in the pictures
i64 frame_begin;   // what all threads had spent by then

// What the processor has spent on the threads that a clock counts.
i64 spent(clockid_t clock) {
    timespec time = {};
    clock_gettime(clock, &time);
    return time.tv_sec * 1'000 * millisecond + time.tv_nsec;
}

// A renderer in software spends time in threads of its own. A driver may spend this thread's on
// waiting for the display, which is no cost of the picture.
void picture_show() {
    i64 begin = spent(CLOCK_THREAD_CPUTIME_ID);
    SDL_GL_SwapWindow(window);
    i64 waited = spent(CLOCK_THREAD_CPUTIME_ID) - begin;
    pacing_cost_add(pace, spent(CLOCK_PROCESS_CPUTIME_ID) - frame_begin - waited);
}

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
        picture_show();
        sleep_until(pacing_frame_end(pace, now()));
    } else {
        i64 due = pacing_frame_end(pace, now());
        sleep_until(pacing_earliest(pace));
        event_wait(due);
    }
    bool has_time = pace.has_time || frame_is_begun();
    bool is_left_out = is_ornament && frame_is_drawn() && pacing_is_dear(pace);
    frame_hold(!has_time || is_left_out || !window_can_be_seen());
    frame_begin = spent(CLOCK_PROCESS_CPUTIME_ID);
}

void display_set_ornament(bool ornament) {
    is_ornament = ornament;
}

i64 display_wait(i64 frames) {
    if (!window_can_be_seen() || !frame_is_due()) {
        event_wait(pacing_after(pace, frames));
    }
    i64 passed = pacing_wake(pace, now());
    frame_hold(!window_can_be_seen());
    return passed;
}
