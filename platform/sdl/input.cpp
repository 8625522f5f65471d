#include "platform/input.h"

#include <SDL.h>

#include "platform/common/gamepads.h"
#include "platform/common/gestures.h"
#include "platform/common/input_state.h"
#include "platform/common/keyboard.h"
#include "platform/common/view.h"
#include "platform/sdl/gamepads.h"
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

void key_press(const SDL_KeyboardEvent& event) {
    SDL_Event next;
    const char* text = text_take(next);
    if (event.repeat == 0) {
        keyboard_press(event.keysym.scancode, key_meaning_of(event.keysym, text));
    }
}

bool mouse_leads = true;  // and no finger: it was used last

i64 clock_now() {
    return static_cast<i64>(SDL_GetTicks64());
}

// From the window's coordinates to those of the game's picture.
void pointer_feed(int window_x, int window_y) {
    f64 density = window_density();
    f64 x = window_x * density;
    f64 y = window_y * density;
    view_point(x, y);
    input_feed_pointer(x, y);
    mouse_leads = true;
}

// Pixels of the game's picture for one unit of the window's coordinates.
f64 picture_scale() {
    return window_density() * view.logical.width / view.shown.width;
}

void motion_event(const SDL_MouseMotionEvent& event) {
    pointer_feed(event.x, event.y);
    input_feed_motion(event.xrel * picture_scale(), event.yrel * picture_scale());
}

u32 button_of(u8 button) {
    switch (button) {
        case SDL_BUTTON_LEFT:
            return mouse_left;
        case SDL_BUTTON_MIDDLE:
            return mouse_middle;
        case SDL_BUTTON_RIGHT:
            return mouse_right;
        default:
            return mouse_button_count;
    }
}

void button_event(const SDL_MouseButtonEvent& event) {
    u32 button = button_of(event.button);
    if (button != mouse_button_count) {
        pointer_feed(event.x, event.y);
        input_feed_button(button, event.type == SDL_MOUSEBUTTONDOWN);
    }
}

finger_phase phase_of(u32 type) {
    return type == SDL_FINGERDOWN ? finger_down : type == SDL_FINGERUP ? finger_up : finger_moved;
}

// Places are parts of the window. Fingers on a touchpad that point at none are the system's.
void finger_event_apply(const SDL_TouchFingerEvent& event) {
    SDL_TouchDeviceType device = SDL_GetTouchDeviceType(event.touchId);
    if (device == SDL_TOUCH_DEVICE_INDIRECT_ABSOLUTE ||
        device == SDL_TOUCH_DEVICE_INDIRECT_RELATIVE) {
        return;
    }
    f64 x = f64{event.x} * view.window.width;
    f64 y = f64{event.y} * view.window.height;
    view_point(x, y);
    u32 age = SDL_GetTicks() - event.timestamp;
    gestures_feed({event.fingerId, phase_of(event.type), x, y, clock_now() - age},
                  finger_stray * picture_scale());
    mouse_leads = false;
}

void wheel_event(const SDL_MouseWheelEvent& event) {
    f64 steps = f64{event.preciseY};
    input_feed_wheel(event.direction == SDL_MOUSEWHEEL_FLIPPED ? -steps : steps);
}

void window_event(const SDL_WindowEvent& event) {
    if (event.event == SDL_WINDOWEVENT_FOCUS_LOST) {
        keyboard_release_all();
        gestures_end();
        gamepads_end();
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
            key_press(event.key);
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
        case SDL_FINGERDOWN:
        case SDL_FINGERMOTION:
        case SDL_FINGERUP:
            finger_event_apply(event.tfinger);
            break;
        default:
            gamepad_event_apply(event);
            break;
    }
}

void pointer_at_rest_feed() {
    int x = 0;
    int y = 0;
    SDL_GetMouseState(&x, &y);
    if (mouse_leads) {
        pointer_feed(x, y);
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
        pointer_at_rest_feed();
        input_feed_caps_lock((SDL_GetModState() & KMOD_CAPS) != 0);
    }
    gestures_wait(clock_now());
    gamepads_wait();
    input_sample();
}

bool input_rests() {
    return input_state_rests() && gestures_rest() && gamepads_rest();
}
