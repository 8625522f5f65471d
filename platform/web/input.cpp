#include "platform/input.h"

#include <emscripten.h>
#include <emscripten/dom_pk_codes.h>
#include <emscripten/html5.h>

#include <iterator>
#include <string_view>

#include "platform/common/gamepads.h"
#include "platform/common/gestures.h"
#include "platform/common/input_state.h"
#include "platform/common/keyboard.h"
#include "platform/common/view.h"
#include "platform/web/canvas.h"
#include "platform/web/gamepads.h"

namespace {

// By the numbers that a page gives its buttons.
constexpr mouse_button mouse_buttons[] = {mouse_left, mouse_middle, mouse_right};

// What one step of a wheel is, by the unit that an event is told in: pixels, lines, pages.
constexpr f64 wheel_units[] = {100, 3, 1};

struct key_place {
    std::string_view place;
    u32 key;
};

// clang-format off
constexpr key_place key_places[] = {
    {"Space", key_space},
    {"Enter", key_enter},
    {"NumpadEnter", key_enter},
    {"Backspace", key_backspace},
    {"Escape", key_escape},
    {"ControlLeft", key_ctrl},
    {"ControlRight", key_ctrl},
    {"ShiftLeft", key_shift},
    {"ShiftRight", key_shift},
    {"BracketLeft", key_left_bracket},
    {"BracketRight", key_right_bracket},
    {"Semicolon", key_semicolon},
    {"Comma", key_comma},
    {"Period", key_period},
    {"Quote", key_apostrophe},
    {"Slash", key_slash},
    {"Backslash", key_backslash},
    {"Backquote", key_grave},
    {"Equal", key_equals},
    {"Minus", key_minus},
    {"Delete", key_delete},
    {"F1", key_f1},
    {"F2", key_f2},
    {"F3", key_f3},
    {"F4", key_f4},
    {"F9", key_f9},
    {"F11", key_f11},
    {"ArrowLeft", key_left},
    {"ArrowRight", key_right},
    {"ArrowUp", key_up},
    {"ArrowDown", key_down},
    {"Home", key_home},
    {"End", key_end},
};
// clang-format on

u32 key_at(std::string_view place) {
    if (place.size() == 4 && place.starts_with("Key")) {
        return key_a + static_cast<u32>(place[3] - 'A');
    }
    if (place.size() == 6 && place.starts_with("Digit")) {
        return key_0 + static_cast<u32>(place[5] - '0');
    }
    for (const key_place& entry : key_places) {
        if (entry.place == place) {
            return entry.key;
        }
    }
    return 0;
}

bool is_visible_ascii(std::string_view symbol) {
    return symbol.size() == 1 && symbol[0] > ' ' && symbol[0] <= '~';
}

// A key that only changes the next character means nothing.
key_meaning key_meaning_of(const EmscriptenKeyboardEvent& event) {
    std::string_view symbol = event.key;
    if (is_visible_ascii(symbol)) {
        return key_meaning_typed(symbol[0]);
    }
    return {symbol == "Dead" ? 0 : key_at(event.code), false, false};
}

f64 x_before;  // of the pointer at the event before, in the game's picture
f64 y_before;

bool is_letter(u32 key) {
    return key >= key_a && key <= key_z;
}

bool is_digit(u32 key) {
    return key >= key_0 && key <= key_9;
}

// With ctrl the game knows o, s, y and z; the other letters are the browser's. So is all with meta,
// and all with alt but the signs that it chooses on some keyboards.
bool is_for_browser(const EmscriptenKeyboardEvent& event, const key_meaning& meaning) {
    bool is_sign = meaning.types && !is_letter(meaning.key) && !is_digit(meaning.key);
    return event.metaKey || (event.altKey && !is_sign) ||
           (event.ctrlKey && is_letter(meaning.key) && meaning.key != key_o &&
            meaning.key != key_s && meaning.key != key_y && meaning.key != key_z);
}

EM_BOOL key_event(int type, const EmscriptenKeyboardEvent* event, void*) {
    auto place = static_cast<u32>(emscripten_compute_dom_pk_code(event->code));
    if (type == EMSCRIPTEN_EVENT_KEYUP) {
        keyboard_release(place);
        return EM_TRUE;
    }
    key_meaning meaning = key_meaning_of(*event);
    if (meaning.key == 0 || is_for_browser(*event, meaning)) {
        return EM_FALSE;
    }
    if (!event->repeat) {
        keyboard_press(place, meaning);
    }
    return EM_TRUE;
}

EM_BOOL mouse_event(int type, const EmscriptenMouseEvent* event, void*) {
    f64 x = event->targetX * canvas_density();
    f64 y = event->targetY * canvas_density();
    view_point(x, y);
    input_feed_pointer(x, y);
    input_feed_motion(x - x_before, y - y_before);
    x_before = x;
    y_before = y;
    bool is_button = type != EMSCRIPTEN_EVENT_MOUSEMOVE;
    if (is_button && event->button < std::size(mouse_buttons)) {
        input_feed_button(mouse_buttons[event->button], type == EMSCRIPTEN_EVENT_MOUSEDOWN);
    }
    return EM_FALSE;  // the browser moves the focus
}

EM_BOOL wheel_event(int, const EmscriptenWheelEvent* event, void*) {
    input_feed_wheel(-event->deltaY / wheel_units[event->deltaMode]);
    return EM_TRUE;
}

EM_BOOL blur_event(int, const EmscriptenFocusEvent*, void*) {
    keyboard_release_all();
    gamepads_end();
    return EM_FALSE;
}

}  // namespace

void input_listen() {
    const char* canvas = canvas_selector;
    emscripten_set_keydown_callback(canvas, nullptr, EM_FALSE, key_event);
    emscripten_set_keyup_callback(canvas, nullptr, EM_FALSE, key_event);
    emscripten_set_mousedown_callback(canvas, nullptr, EM_FALSE, mouse_event);
    emscripten_set_mouseup_callback(canvas, nullptr, EM_FALSE, mouse_event);
    emscripten_set_mousemove_callback(canvas, nullptr, EM_FALSE, mouse_event);
    emscripten_set_wheel_callback(canvas, nullptr, EM_FALSE, wheel_event);
    emscripten_set_blur_callback(canvas, nullptr, EM_FALSE, blur_event);
}

// What web/touch.js tells of a finger: its place in units of the page from the canvas's top-left
// corner, and when it was there, in milliseconds.
extern "C" EMSCRIPTEN_KEEPALIVE void page_finger(i32 finger, i32 phase, f64 x, f64 y, f64 time) {
    f64 stray = finger_stray * canvas_density() * view.logical.width / view.shown.width;
    x *= canvas_density();
    y *= canvas_density();
    view_point(x, y);
    gestures_feed({finger, static_cast<finger_phase>(phase), x, y, static_cast<i64>(time)}, stray);
}

void input_poll() {
    canvas_fit();
    gestures_wait(static_cast<i64>(emscripten_get_now()));
    gamepads_poll();
    gamepads_wait();
    input_sample();
}

// A gamepad has to be asked.
bool input_rests() {
    return input_state_rests() && gestures_rest() && !gamepads_are_there();
}
