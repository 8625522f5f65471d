// Showing frames, 60 a second on every display: the game advances 1/60 s with each.

#include <SDL.h>

#include <chrono>
#include <thread>

#include "platform/gl/frame.h"
#include "platform/gpu.h"
#include "platform/sdl/window.h"

namespace {

using clock_type = std::chrono::steady_clock;

constexpr int frames_per_second = 60;
constexpr clock_type::duration frame_time =
    std::chrono::duration_cast<clock_type::duration>(std::chrono::seconds(1)) / frames_per_second;
// Falling behind by more than this is not caught up with: the game slows down instead.
constexpr clock_type::duration behind_limit = frame_time;

clock_type::time_point deadline;  // when the frame after the one shown last is due

// Whether every frame can stay for a whole number of the display's pictures. A rate of 59 is
// 59.94 rounded down.
bool refresh_rate_fits(int rate) {
    int over = rate % frames_per_second;
    return rate >= frames_per_second - 1 && (over <= 1 || over == frames_per_second - 1);
}

void wait_for_deadline() {
    deadline += frame_time;
    clock_type::time_point now = clock_type::now();
    if (now > deadline + behind_limit) {
        deadline = now;
    }
    std::this_thread::sleep_until(deadline);
}

}  // namespace

void present_display_changed() {
    SDL_DisplayMode mode = {};
    SDL_GetDesktopDisplayMode(SDL_GetWindowDisplayIndex(window), &mode);
    SDL_GL_SetSwapInterval(refresh_rate_fits(mode.refresh_rate) ? 1 : 0);
}

void pipeline_present() {
    if (frame_is_drawn()) {
        SDL_GL_SwapWindow(window);
    }
    frame_hold(!window_can_be_seen());
    wait_for_deadline();
}
