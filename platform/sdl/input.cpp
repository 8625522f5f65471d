#include "platform/input.h"

#include <SDL.h>

#include <algorithm>
#include <iterator>

#include "platform/common/input_state.h"
#include "platform/common/view.h"
#include "platform/sdl/key_map.h"
#include "platform/sdl/window.h"

namespace {

// What each key of the keyboard went down as; 0 while it is up. Its release means the same key,
// also when the layout has changed in between.
u32 down_as[SDL_NUM_SCANCODES];

bool is_down(u32 key) {
    return std::find(std::begin(down_as), std::end(down_as), key) != std::end(down_as);
}

// Whether an edge came of it: none does while another key that means the same is down.
bool key_event(const SDL_KeyboardEvent& event) {
    u32& place = down_as[event.keysym.scancode];
    u32 key = event.type == SDL_KEYDOWN && place == 0 ? key_of(event.keysym) : place;
    if (event.repeat != 0 || key == 0) {
        return false;
    }
    input_feed_caps_lock((event.keysym.mod & KMOD_CAPS) != 0);
    bool was_down = is_down(key);
    place = event.type == SDL_KEYDOWN ? key : 0;
    input_feed_key(key, is_down(key));
    return !was_down;
}

// From the window's coordinates to those of the game's picture.
void pointer_feed(int window_x, int window_y) {
    f64 density = window_density();
    f64 x = window_x * density;
    f64 y = window_y * density;
    view_point(x, y);
    input_feed_pointer(x, y);
}

bool button_event(const SDL_MouseButtonEvent& event) {
    if (event.button != SDL_BUTTON_LEFT && event.button != SDL_BUTTON_RIGHT) {
        return false;
    }
    pointer_feed(event.x, event.y);
    input_feed_button(event.button == SDL_BUTTON_LEFT ? mouse_left : mouse_right,
                      event.type == SDL_MOUSEBUTTONDOWN);
    return true;
}

void wheel_event(const SDL_MouseWheelEvent& event) {
    f64 steps = f64{event.preciseY};
    input_feed_wheel(event.direction == SDL_MOUSEWHEEL_FLIPPED ? -steps : steps);
}

void window_event(const SDL_WindowEvent& event) {
    if (event.event == SDL_WINDOWEVENT_FOCUS_LOST) {
        std::fill(std::begin(down_as), std::end(down_as), 0);
        input_feed_release_all();
    }
    window_changed();
}

// Whether an edge came of it.
bool event_apply(const SDL_Event& event) {
    switch (event.type) {
        case SDL_QUIT:
            display_close_requested();
            return false;
        case SDL_WINDOWEVENT:
            window_event(event.window);
            return false;
        case SDL_KEYDOWN:
        case SDL_KEYUP:
            return key_event(event.key);
        case SDL_MOUSEBUTTONDOWN:
        case SDL_MOUSEBUTTONUP:
            return button_event(event.button);
        case SDL_MOUSEMOTION:
            pointer_feed(event.motion.x, event.motion.y);
            input_feed_motion(event.motion.xrel, event.motion.yrel);
            return false;
        case SDL_MOUSEWHEEL:
            wheel_event(event.wheel);
            return false;
        default:
            return false;
    }
}

}  // namespace

// A sample ends with its first edge; what came after it waits for the next poll. So no edge hides
// another one, and each is seen with the pointer and the held keys of its moment, also when frames
// are slow.
void input_poll() {
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0 && !event_apply(event)) {}
    input_feed_caps_lock((SDL_GetModState() & KMOD_CAPS) != 0);
    input_sample();
}
