#include "platform/common/input_state.h"

#include <algorithm>
#include <deque>

#include "platform/input.h"

namespace {

enum class event_kind : u8 {
    key,
    button,
    release_all,
    caps_lock,
    pointer,
    finger,
    motion,
    wheel,
    grip,
    drag,
};

struct input_event {
    event_kind kind;
    u32 code;  // of the key or button
    bool down;
    f64 x, y;
    f64 dx = 0, dy = 0, zoom = 1;  // of a drag
    bool operator==(const input_event&) const = default;
};

// The keys or the buttons.
template <u32 count>
struct switches {
    bool held[count];
    bool pressed[count];
    bool released[count];
};

struct input_state {
    bool any;  // event in the last sample
    switches<key_count> keys;
    switches<mouse_button_count> buttons;
    bool caps_lock;
    f64 mouse_x, mouse_y;  // pixels
    f64 x, y;              // of the pointer: the mouse's unless it was brought elsewhere
    bool brought;
    bool touched;  // by a finger, which is gone after its click
    f64 dx, dy;    // pixels since the last sample
    f64 wheel;     // steps since the last sample
    input_drag drag;
};

std::deque<input_event> waiting;
bool caps_lock_fed;
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

void drag_begin(f64 x, f64 y) {
    sampled.drag.from_x = x;
    sampled.drag.from_y = y;
}

// One drag after the other is a drag of the point that the first brings to where the second begins.
void drag_add(const input_event& next) {
    input_drag& drag = sampled.drag;
    drag.x += (next.x - drag.x - drag.dx) / drag.zoom;
    drag.y += (next.y - drag.y - drag.dy) / drag.zoom;
    drag.dx = next.x + next.dx - drag.x;
    drag.dy = next.y + next.dy - drag.y;
    drag.zoom *= next.zoom;
}

void drag_forget() {
    sampled.drag.dx = sampled.drag.dy = 0;
    sampled.drag.zoom = 1;
}

// The mouse is used: the pointer is its own again.
void pointer_take_back() {
    sampled.brought = false;
    sampled.x = sampled.mouse_x;
    sampled.y = sampled.mouse_y;
}

void pointer_move(f64 x, f64 y) {
    if (sampled.buttons.held[mouse_middle]) {
        drag_add({event_kind::drag, 0, false, sampled.mouse_x, sampled.mouse_y, x - sampled.mouse_x,
                  y - sampled.mouse_y});
    }
    sampled.mouse_x = x;
    sampled.mouse_y = y;
    pointer_take_back();
}

// A mouse at rest may be told of again, and leaves the pointer where it was brought.
void mouse_move(f64 x, f64 y) {
    if (!sampled.brought || x != sampled.mouse_x || y != sampled.mouse_y) {
        pointer_move(x, y);
        sampled.touched = false;
    }
}

void button_set(u32 button, bool down) {
    if (down) {
        pointer_take_back();
    }
    if (button == mouse_middle && down) {
        drag_begin(sampled.x, sampled.y);
    }
    switch_set(sampled.buttons, button, down);
}

void event_apply(const input_event& event) {
    switch (event.kind) {
        case event_kind::key:
            switch_set(sampled.keys, event.code, event.down);
            break;
        case event_kind::button:
            button_set(event.code, event.down);
            break;
        case event_kind::release_all:
            switches_release(sampled.keys);
            switches_release(sampled.buttons);
            break;
        case event_kind::caps_lock:
            sampled.caps_lock = event.down;
            break;
        case event_kind::pointer:
            mouse_move(event.x, event.y);
            break;
        case event_kind::finger:
            pointer_move(event.x, event.y);
            sampled.touched = true;
            break;
        case event_kind::grip:
            drag_begin(event.x, event.y);
            break;
        case event_kind::drag:
            drag_add(event);
            break;
        case event_kind::motion:
            sampled.dx += event.x;
            sampled.dy += event.y;
            break;
        case event_kind::wheel:
            pointer_take_back();
            sampled.wheel += event.y;
            break;
    }
}

bool is_modifier(u32 key) {
    return key == key_ctrl || key == key_shift || key == key_alt;
}

bool ends_sample(const input_event& event) {
    return event.kind == event_kind::button ||
           (event.kind == event_kind::key && event.down && !is_modifier(event.code));
}

input_event release_of(const input_event& press) {
    return {press.kind, press.code, false, 0, 0};
}

void sample_begin() {
    sampled.any = !waiting.empty();
    edges_forget(sampled.keys);
    edges_forget(sampled.buttons);
    sampled.dx = sampled.dy = sampled.wheel = 0.0;
    drag_forget();
}

template <u32 count>
bool any_held(const switches<count>& all) {
    return std::find(all.held, all.held + count, true) != all.held + count;
}

}  // namespace

void input_feed_key(u32 key, bool down) {
    waiting.push_back({event_kind::key, key, down, 0, 0});
}

void input_feed_button(u32 button, bool down) {
    waiting.push_back({event_kind::button, button, down, 0, 0});
}

void input_feed_release_all() {
    waiting.push_back({event_kind::release_all, 0, false, 0, 0});
}

void input_feed_caps_lock(bool on) {
    if (on != caps_lock_fed) {
        caps_lock_fed = on;
        waiting.push_back({event_kind::caps_lock, 0, on, 0, 0});
    }
}

void input_feed_pointer(f64 x, f64 y) {
    waiting.push_back({event_kind::pointer, 0, false, x, y});
}

void input_feed_tap(u32 button, f64 x, f64 y) {
    waiting.push_back({event_kind::finger, 0, false, x, y});
    input_feed_button(button, true);
    input_feed_button(button, false);
}

void input_feed_grip(f64 x, f64 y) {
    waiting.push_back({event_kind::grip, 0, false, x, y});
}

void input_feed_drag(f64 x, f64 y, f64 dx, f64 dy, f64 zoom) {
    waiting.push_back({event_kind::drag, 0, false, x, y, dx, dy, zoom});
}

void input_feed_motion(f64 dx, f64 dy) {
    waiting.push_back({event_kind::motion, 0, false, dx, dy});
}

void input_feed_wheel(f64 steps) {
    waiting.push_back({event_kind::wheel, 0, false, 0, steps});
}

void input_sample() {
    sample_begin();
    while (!waiting.empty()) {
        input_event event = waiting.front();
        waiting.pop_front();
        event_apply(event);
        if (ends_sample(event)) {
            if (event.down && !waiting.empty() && waiting.front() == release_of(event)) {
                event_apply(waiting.front());
                waiting.pop_front();
            }
            return;
        }
    }
}

bool input_state_rests() {
    return !sampled.any && waiting.empty() && !any_held(sampled.keys) && !any_held(sampled.buttons);
}

void input_reset() {
    waiting.clear();
    caps_lock_fed = false;
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

bool input_mouse_hovers() {
    return !sampled.touched || sampled.buttons.pressed[mouse_left] ||
           sampled.buttons.pressed[mouse_right];
}

void input_mouse_bring(f64 x, f64 y) {
    sampled.x = x;
    sampled.y = y;
    sampled.brought = true;
    sampled.touched = false;
}

bool input_mouse_is_brought() {
    return sampled.brought;
}

void input_key_clicks(u32 key, u32 button) {
    if (!input_key_is_pressed(key) || sampled.buttons.held[button]) {
        return;
    }
    sampled.keys.pressed[key] = false;
    sampled.buttons.pressed[button] = true;
    sampled.buttons.released[button] = true;
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

input_drag input_dragged() {
    return sampled.drag;
}
