#include "platform/input.h"

#include <emscripten/html5.h>

#include <algorithm>
#include <iterator>
#include <string_view>

#include "platform/common/input_state.h"
#include "platform/web/canvas.h"

namespace {

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
    {"AltLeft", key_alt},
    {"AltRight", key_alt},
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
    {"F3", key_f3},
    {"F11", key_f11},
};
// clang-format on

u32 key_of(const EmscriptenKeyboardEvent& event) {
    std::string_view place = event.code;
    std::string_view symbol = event.key;
    if (symbol.size() == 1) {
        char letter = static_cast<char>(symbol[0] | 0x20);
        if ('a' <= letter && letter <= 'z') {
            return key_a + static_cast<u32>(letter - 'a');
        }
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

EM_BOOL key_event(int type, const EmscriptenKeyboardEvent* event, void*) {
    u32 key = key_of(*event);
    if (key != 0) {
        input_feed_key(key, type == EMSCRIPTEN_EVENT_KEYDOWN);
    }
    return key != 0;
}

EM_BOOL mouse_event(int type, const EmscriptenMouseEvent* event, void*) {
    input_feed_pointer(event->targetX, event->targetY);
    input_feed_motion(event->movementX, event->movementY);
    if (type != EMSCRIPTEN_EVENT_MOUSEMOVE) {
        input_feed_button(event->button == 0 ? mouse_left : mouse_right,
                          type == EMSCRIPTEN_EVENT_MOUSEDOWN);
    }
    return EM_FALSE;
}

EM_BOOL wheel_event(int, const EmscriptenWheelEvent* event, void*) {
    input_feed_wheel(event->deltaY < 0 ? 1 : -1);
    return EM_TRUE;
}

EM_BOOL focus_event(int, const EmscriptenFocusEvent*, void*) {
    input_feed_release_all();
    return EM_FALSE;
}

}  // namespace

void input_listen() {
    emscripten_set_keydown_callback(canvas_selector, nullptr, EM_FALSE, key_event);
    emscripten_set_keyup_callback(canvas_selector, nullptr, EM_FALSE, key_event);
    emscripten_set_mousedown_callback(canvas_selector, nullptr, EM_FALSE, mouse_event);
    emscripten_set_mouseup_callback(canvas_selector, nullptr, EM_FALSE, mouse_event);
    emscripten_set_mousemove_callback(canvas_selector, nullptr, EM_FALSE, mouse_event);
    emscripten_set_wheel_callback(canvas_selector, nullptr, EM_FALSE, wheel_event);
    emscripten_set_blur_callback(canvas_selector, nullptr, EM_FALSE, focus_event);
}

void input_poll() {
    input_sample();
}
