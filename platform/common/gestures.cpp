#include "platform/common/gestures.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/common/input_state.h"
#include "platform/input.h"

namespace {

constexpr i64 long_press = 500;  // milliseconds

struct finger {
    i64 id;
    f64 x, y;
};

// What the fingers that are down are doing.
enum class gesture : u8 { none, resting, dragging, spoilt };

std::vector<finger> fingers;
gesture current;
finger first;    // as it came down
i64 first_time;  // milliseconds
bool waited;     // since it came down

// What one or two fingers hold: their middle, and how far they are apart.
struct grip {
    f64 x, y;
    f64 width;  // pixels, at least 1
};

grip grip_now() {
    const finger& a = fingers.front();
    const finger& b = fingers.back();
    return {(a.x + b.x) / 2, (a.y + b.y) / 2, std::max(1.0, std::hypot(a.x - b.x, a.y - b.y))};
}

void drag_begin() {
    current = gesture::dragging;
    input_feed_grip(first.x, first.y);
}

void down(const finger_event& event) {
    fingers.push_back({event.finger, event.x, event.y});
    if (fingers.size() == 1) {
        current = gesture::resting;
        first = fingers.front();
        first_time = event.time;
        waited = false;
    } else if (fingers.size() == 2 && current == gesture::resting) {
        drag_begin();
    } else if (fingers.size() > 2) {
        current = gesture::spoilt;
    }
}

void moved(finger& one, const finger_event& event, f64 stray) {
    grip before = grip_now();
    one.x = event.x;
    one.y = event.y;
    if (current == gesture::resting && std::hypot(one.x - first.x, one.y - first.y) > stray) {
        drag_begin();
        before = {first.x, first.y, before.width};
    }
    if (current == gesture::dragging) {
        grip now = grip_now();
        input_feed_drag(before.x, before.y, now.x - before.x, now.y - before.y,
                        now.width / before.width);
    }
}

void gone(i64 id) {
    std::erase_if(fingers, [id](const finger& one) { return one.id == id; });
    if (fingers.empty()) {
        current = gesture::none;
    }
}

void up(i64 id) {
    if (current == gesture::resting) {
        input_feed_tap(mouse_left, first.x, first.y);
    }
    gone(id);
}

void cancelled(i64 id) {
    current = gesture::spoilt;
    gone(id);
}

void long_press_find(i64 time) {
    if (current == gesture::resting && time - first_time >= long_press) {
        current = gesture::spoilt;
        input_feed_tap(mouse_right, first.x, first.y);
    }
}

}  // namespace

void gestures_feed(const finger_event& event, f64 stray) {
    long_press_find(event.time);
    auto found = std::find_if(fingers.begin(), fingers.end(),
                              [&](const finger& one) { return one.id == event.finger; });
    if (event.phase == finger_down) {
        if (found != fingers.end()) {
            gestures_end();  // nobody told that it went up
        }
        down(event);
    } else if (found == fingers.end()) {
        return;
    } else if (event.phase == finger_moved) {
        moved(*found, event, stray);
    } else if (event.phase == finger_up) {
        up(event.finger);
    } else {
        cancelled(event.finger);
    }
}

void gestures_wait(i64 time) {
    if (waited) {
        long_press_find(time);
    }
    waited = true;
}

bool gestures_rest() {
    return fingers.empty();
}

void gestures_end() {
    fingers.clear();
    current = gesture::none;
}
