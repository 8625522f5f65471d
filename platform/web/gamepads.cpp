#include "platform/web/gamepads.h"

#include <emscripten/html5.h>

#include <algorithm>
#include <string_view>

#include "platform/common/gamepads.h"

namespace {

// By the numbers of a browser's standard mapping; the pads' number for none.
constexpr pad_button buttons[] = {
    pad_south,          pad_east,         pad_west,         pad_north,        pad_left_shoulder,
    pad_right_shoulder, pad_button_count, pad_button_count, pad_button_count, pad_start,
    pad_button_count,   pad_button_count, pad_up,           pad_down,         pad_left,
    pad_right,
};

void gamepad_tell(const EmscriptenGamepadEvent& pad) {
    for (int i = 0; i < std::min<int>(pad.numButtons, std::size(buttons)); ++i) {
        if (buttons[i] != pad_button_count) {
            gamepad_button(pad.index, buttons[i], pad.digitalButton[i]);
        }
    }
    for (int i = 0; i < std::min<int>(pad.numAxes, pad_axis_count); ++i) {
        gamepad_axis(pad.index, static_cast<pad_axis>(i), pad.axis[i]);
    }
}

}  // namespace

void gamepads_poll() {
    if (emscripten_sample_gamepad_data() != EMSCRIPTEN_RESULT_SUCCESS) {
        return;
    }
    for (int index = 0; index < emscripten_get_num_gamepads(); ++index) {
        EmscriptenGamepadEvent pad;
        bool there = emscripten_get_gamepad_status(index, &pad) == EMSCRIPTEN_RESULT_SUCCESS &&
                     pad.connected && std::string_view(pad.mapping) == "standard";
        if (there) {
            gamepad_tell(pad);
        } else {
            gamepad_gone(index);
        }
    }
}
