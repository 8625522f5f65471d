#include "platform/common/gamepads.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/common/input_state.h"
#include "platform/common/keyboard.h"
#include "platform/common/view.h"
#include "platform/input.h"

namespace {

// Of a stick's way to its end. A direction of the left one goes down and up at different ones, so
// that none flutters; the right one begins behind what noise or wear may hold it at.
constexpr f64 push_down = 0.6;
constexpr f64 push_up = 0.4;
constexpr f64 rest_most = 0.25;

constexpr f64 pull_speed = 8;     // pixels of the picture a poll
constexpr f64 zoom_speed = 1.01;  // times a poll

// Behind the places of a keyboard's keys.
constexpr u32 first_place = 1u << 16;
constexpr u32 places_of_pad = 16;

struct gamepad {
    i64 id;
    bool down[pad_button_count];    // buttons
    bool pushed[pad_button_count];  // of the pad, by the left stick
    f64 axes[pad_axis_count];
};

std::vector<gamepad> gamepads;

// By `pad_button`; the shoulders press no key.
constexpr key_meaning meanings[pad_button_count] = {
    {key_enter, true, false}, {key_enter, true, true},    {key_space, false, false},
    {key_f2, false, false},   {key_escape, false, false}, {key_up, false, false},
    {key_down, false, false}, {key_left, false, false},   {key_right, false, false},
};

auto gamepad_find(i64 id) {
    return std::find_if(gamepads.begin(), gamepads.end(),
                        [id](const gamepad& one) { return one.id == id; });
}

gamepad& gamepad_of(i64 id) {
    auto found = gamepad_find(id);
    return found != gamepads.end() ? *found : gamepads.emplace_back(gamepad{id, {}, {}, {}});
}

u32 place_of(const gamepad& pad, i64 button) {
    return first_place + static_cast<u32>(pad.id) * places_of_pad + static_cast<u32>(button);
}

// A direction of the pad is down while its button or the stick is.
void switch_set(gamepad& pad, i64 button, bool& one, bool other, bool down) {
    const bool was_down = one || other;
    one = down;
    if (was_down == (down || other) || meanings[button].key == 0) {
        return;
    }
    if (down) {
        keyboard_press(place_of(pad, button), meanings[button]);
    } else {
        keyboard_release(place_of(pad, button));
    }
}

// How far the stick is pushed one way; `across` is its other axis.
void push_set(gamepad& pad, pad_button button, f64 value, f64 across) {
    bool& pushed = pad.pushed[button];
    const bool down = pushed ? value > push_up : value > push_down && value >= std::abs(across);
    switch_set(pad, button, pushed, pad.down[button], down);
}

f64 pull_of(f64 value) {
    const f64 way = std::max(std::abs(value) - rest_most, 0.0) / (1 - rest_most);
    return std::copysign(std::min(way, 1.0), value);
}

bool pulls(const gamepad& pad) {
    return pull_of(pad.axes[pad_right_x]) != 0 || pull_of(pad.axes[pad_right_y]) != 0 ||
           pad.down[pad_left_shoulder] != pad.down[pad_right_shoulder];
}

// The board goes against the stick, as under a camera that goes with it.
void pull(const gamepad& pad) {
    const f64 x = view.logical.width / 2.0;
    const f64 y = view.logical.height / 2.0;
    const i64 nearer = pad.down[pad_right_shoulder] - pad.down[pad_left_shoulder];
    const f64 zoom = nearer > 0 ? zoom_speed : nearer < 0 ? 1 / zoom_speed : 1;
    input_feed_grip(x, y);
    input_feed_drag(x, y, -pull_of(pad.axes[pad_right_x]) * pull_speed,
                    -pull_of(pad.axes[pad_right_y]) * pull_speed, zoom);
}

}  // namespace

void gamepad_button(i64 id, pad_button button, bool down) {
    gamepad& pad = gamepad_of(id);
    switch_set(pad, button, pad.down[button], pad.pushed[button], down);
}

void gamepad_axis(i64 id, pad_axis axis, f64 value) {
    gamepad& pad = gamepad_of(id);
    pad.axes[axis] = std::isfinite(value) ? value : 0;
    const f64 x = pad.axes[pad_left_x];
    const f64 y = pad.axes[pad_left_y];
    push_set(pad, pad_left, -x, y);
    push_set(pad, pad_right, x, y);
    push_set(pad, pad_up, -y, x);
    push_set(pad, pad_down, y, x);
}

void gamepad_gone(i64 id) {
    auto found = gamepad_find(id);
    if (found == gamepads.end()) {
        return;
    }
    for (u8 button = 0; button < pad_button_count; ++button) {
        keyboard_release(place_of(*found, button));
    }
    gamepads.erase(found);
}

void gamepads_end() {
    gamepads.clear();
}

void gamepads_wait() {
    for (const gamepad& pad : gamepads) {
        if (pulls(pad)) {
            pull(pad);
        }
    }
}

bool gamepads_are_there() {
    return !gamepads.empty();
}

bool gamepads_rest() {
    return std::none_of(gamepads.begin(), gamepads.end(), pulls);
}
