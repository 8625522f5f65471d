#include "platform/common/input_state.h"

#include "platform/input.h"

namespace {

// The keys or the buttons.
template <u32 count>
struct switches {
    bool held[count];
    bool pressed[count];
    bool released[count];
};

struct input_state {
    switches<key_count> keys;
    switches<mouse_button_count> buttons;
    bool caps_lock;
    f64 x, y;    // pixels
    f64 dx, dy;  // pixels since the last sample
    f64 wheel;   // steps since the last sample
};

input_state fed;
input_state sampled;

template <u32 count>
void switch_set(switches<count>& all, u32 code, bool down) {
    if (code >= count || all.held[code] == down) {
        return;
    }
    all.held[code] = down;
    (down ? all.pressed : all.released)[code] = true;
}

template <u32 count>
void switches_release(switches<count>& all) {
    for (u32 code = 0; code < count; ++code) {
        switch_set(all, code, false);
    }
}

template <u32 count>
void edges_forget(switches<count>& all) {
    for (u32 code = 0; code < count; ++code) {
        all.pressed[code] = false;
        all.released[code] = false;
    }
}

}  // namespace

void input_feed_key(u32 key, bool down) {
    switch_set(fed.keys, key, down);
}

void input_feed_button(u32 button, bool down) {
    switch_set(fed.buttons, button, down);
}

void input_feed_release_all() {
    switches_release(fed.keys);
    switches_release(fed.buttons);
}

void input_feed_caps_lock(bool on) {
    fed.caps_lock = on;
}

void input_feed_pointer(f64 x, f64 y) {
    fed.x = x;
    fed.y = y;
}

void input_feed_motion(f64 dx, f64 dy) {
    fed.dx += dx;
    fed.dy += dy;
}

void input_feed_wheel(f64 steps) {
    fed.wheel += steps;
}

void input_sample() {
    sampled = fed;
    edges_forget(fed.keys);
    edges_forget(fed.buttons);
    fed.dx = fed.dy = fed.wheel = 0.0;
}

void input_reset() {
    fed = {};
    sampled = {};
}

bool input_key_is_pressed(u32 key) {
    return key < key_count && sampled.keys.pressed[key];
}

bool input_key_is_held(u32 key) {
    return key < key_count && sampled.keys.held[key];
}

u32 input_key_modifiers() {
    return sampled.caps_lock ? u32{modifier_caps_lock} : 0;
}

void input_mouse_position(f64& x, f64& y) {
    x = sampled.x;
    y = sampled.y;
}

void input_mouse_moved(f64& dx, f64& dy) {
    dx = sampled.dx;
    dy = sampled.dy;
}

bool input_mouse_is_pressed(u32 button) {
    return button < mouse_button_count && sampled.buttons.pressed[button];
}

bool input_mouse_is_released(u32 button) {
    return button < mouse_button_count && sampled.buttons.released[button];
}

f64 input_mouse_wheel() {
    return sampled.wheel;
}
