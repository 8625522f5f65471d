#include "platform/input.h"

#include <SDL.h>

#include "platform/common/input_state.h"
#include "platform/common/keyboard.h"
#include "platform/common/view.h"
#include "platform/sdl/key_map.h"
#include "platform/sdl/window.h"

namespace {

// The text that the key just taken from the queue types: it is the next event there.
const char* text_take(SDL_Event& event) {
    bool typed = SDL_PeepEvents(&event, 1, SDL_PEEKEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) == 1 &&
                 event.type == SDL_TEXTINPUT &&
                 SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_TEXTINPUT, SDL_TEXTINPUT) == 1;
    return typed ? event.text.text : "";
}

void key_down(const SDL_KeyboardEvent& event) {
    SDL_Event next;
    const char* text = text_take(next);
    if (event.repeat == 0) {
        keyboard_press(event.keysym.scancode, key_meaning_of(event.keysym, text));
    }
}

// From the window's coordinates to those of the game's picture.
void pointer_feed(int window_x, int window_y) {
    f64 density = window_density();
    f64 x = window_x * density;
    f64 y = window_y * density;
    view_point(x, y);
    input_feed_pointer(x, y);
}

void motion_event(const SDL_MouseMotionEvent& event) {
    f64 scale = window_density() * view.logical.width / view.shown.width;
    pointer_feed(event.x, event.y);
    input_feed_motion(event.xrel * scale, event.yrel * scale);
}

void button_event(const SDL_MouseButtonEvent& event) {
    if (event.button == SDL_BUTTON_LEFT || event.button == SDL_BUTTON_RIGHT) {
        pointer_feed(event.x, event.y);
        input_feed_button(event.button == SDL_BUTTON_LEFT ? mouse_left : mouse_right,
                          event.type == SDL_MOUSEBUTTONDOWN);
    }
}

void wheel_event(const SDL_MouseWheelEvent& event) {
    f64 steps = f64{event.preciseY};
    input_feed_wheel(event.direction == SDL_MOUSEWHEEL_FLIPPED ? -steps : steps);
}

void window_event(const SDL_WindowEvent& event) {
    if (event.event == SDL_WINDOWEVENT_FOCUS_LOST) {
        keyboard_release_all();
    }
    window_changed();
}

void event_apply(const SDL_Event& event) {
    switch (event.type) {
        case SDL_QUIT:
            display_close_requested();
            break;
        case SDL_WINDOWEVENT:
            window_event(event.window);
            break;
        case SDL_KEYDOWN:
            key_down(event.key);
            break;
        case SDL_KEYUP:
            keyboard_release(event.key.keysym.scancode);
            break;
        case SDL_TEXTINPUT:
            keyboard_type(key_meaning_of({}, event.text.text));
            break;
        case SDL_MOUSEBUTTONDOWN:
        case SDL_MOUSEBUTTONUP:
            button_event(event.button);
            break;
        case SDL_MOUSEMOTION:
            motion_event(event.motion);
            break;
        case SDL_MOUSEWHEEL:
            wheel_event(event.wheel);
            break;
        default:
            break;
    }
}

}  // namespace

void input_poll() {
    SDL_Event event;
    bool any = false;
    while (SDL_PollEvent(&event) != 0) {
        event_apply(event);
        any = true;
    }
    if (any) {
        // The window may have changed under a pointer at rest; other windows may have had the keys.
        int x = 0;
        int y = 0;
        SDL_GetMouseState(&x, &y);
        pointer_feed(x, y);
        input_feed_caps_lock((SDL_GetModState() & KMOD_CAPS) != 0);
    }
    input_sample();
}
