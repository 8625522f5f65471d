#include "platform/headless/headless.h"

#include "platform/common/gestures.h"
#include "platform/common/input_state.h"
#include "platform/display.h"
#include "platform/headless/gpu_headless.h"
#include "platform/input.h"
#include "platform/system.h"

namespace {

struct machine {
    u64 time = 0;
    bool window_open = false;
    bool window_closed_by_player = false;
    bool fullscreen = false;
    i64 fullscreen_calls = 0;
    f64 pointer_x = 0.0;
    f64 pointer_y = 0.0;
    std::string told = {};
    bool refuses = false;
};

machine simulated;

}  // namespace

void headless_reset() {
    simulated = {};
    input_reset();
    gestures_end();
    gpu_reset();
}

void headless_set_time(u64 time) {
    simulated.time = time;
}

void headless_close_window() {
    simulated.window_closed_by_player = true;
    input_feed_motion(0, 0);
}

bool headless_window_is_open() {
    return simulated.window_open;
}

i64 headless_fullscreen_calls() {
    return simulated.fullscreen_calls;
}

bool headless_is_fullscreen() {
    return simulated.fullscreen;
}

const std::string& headless_told() {
    return simulated.told;
}

bool headless_refuses() {
    return simulated.refuses;
}

void headless_key_press(u32 key) {
    input_feed_key(key, true);
    input_feed_key(key, false);
}

void headless_key_hold(u32 key) {
    input_feed_key(key, true);
}

void headless_key_release(u32 key) {
    input_feed_key(key, false);
}

void headless_set_caps_lock(bool on) {
    input_feed_caps_lock(on);
}

void headless_mouse_move(f64 x, f64 y) {
    input_feed_motion(x - simulated.pointer_x, y - simulated.pointer_y);
    input_feed_pointer(x, y);
    simulated.pointer_x = x;
    simulated.pointer_y = y;
}

void headless_mouse_press(u32 button) {
    input_feed_button(button, true);
}

void headless_mouse_release(u32 button) {
    input_feed_button(button, false);
}

void headless_release_all() {
    input_feed_release_all();
}

void headless_wheel(f64 steps) {
    input_feed_wheel(steps);
}

void system_init(u32, f64) {}

void system_release() {}

u64 system_time() {
    return simulated.time;
}

void system_sleep(u32) {}

void display_open(i32, i32, str, u32, u32) {
    simulated.window_open = true;
}

bool display_is_closed() {
    return simulated.window_closed_by_player;
}

bool display_is_hidden() {
    return false;
}

void display_set_fullscreen(bool fullscreen) {
    simulated.fullscreen = fullscreen;
    simulated.fullscreen_calls += 1;
}

void display_get_info(i32& width, i32& height) {
    width = 1920;
    height = 1080;
}

bool display_wants_stillness() {
    return false;
}

void display_tell(str line) {
    simulated.told.assign(line.begin(), line.end());
}

void display_stand(str) {}

void display_refuse(bool refuses) {
    simulated.refuses = refuses;
}

void display_set_ornament(bool) {}

void display_close() {
    simulated.window_open = false;
}

void input_poll() {
    input_sample();
}

bool input_rests() {
    return input_state_rests() && gestures_rest();
}
