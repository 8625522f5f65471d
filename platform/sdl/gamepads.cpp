#include "platform/sdl/gamepads.h"

#include "base/types.h"
#include "platform/common/gamepads.h"

namespace {

constexpr f64 axis_end = 32767;

pad_button button_of(u8 button) {
    switch (button) {
        case SDL_CONTROLLER_BUTTON_A:
            return pad_south;
        case SDL_CONTROLLER_BUTTON_B:
            return pad_east;
        case SDL_CONTROLLER_BUTTON_X:
            return pad_west;
        case SDL_CONTROLLER_BUTTON_Y:
            return pad_north;
        case SDL_CONTROLLER_BUTTON_START:
            return pad_start;
        case SDL_CONTROLLER_BUTTON_DPAD_UP:
            return pad_up;
        case SDL_CONTROLLER_BUTTON_DPAD_DOWN:
            return pad_down;
        case SDL_CONTROLLER_BUTTON_DPAD_LEFT:
            return pad_left;
        case SDL_CONTROLLER_BUTTON_DPAD_RIGHT:
            return pad_right;
        case SDL_CONTROLLER_BUTTON_LEFTSHOULDER:
            return pad_left_shoulder;
        case SDL_CONTROLLER_BUTTON_RIGHTSHOULDER:
            return pad_right_shoulder;
        default:
            return pad_button_count;
    }
}

pad_axis axis_of(u8 axis) {
    switch (axis) {
        case SDL_CONTROLLER_AXIS_LEFTX:
            return pad_left_x;
        case SDL_CONTROLLER_AXIS_LEFTY:
            return pad_left_y;
        case SDL_CONTROLLER_AXIS_RIGHTX:
            return pad_right_x;
        case SDL_CONTROLLER_AXIS_RIGHTY:
            return pad_right_y;
        default:
            return pad_axis_count;
    }
}

void button_event(const SDL_ControllerButtonEvent& event) {
    if (const pad_button button = button_of(event.button); button != pad_button_count) {
        gamepad_button(event.which, button, event.state == SDL_PRESSED);
    }
}

void axis_event(const SDL_ControllerAxisEvent& event) {
    if (const pad_axis axis = axis_of(event.axis); axis != pad_axis_count) {
        gamepad_axis(event.which, axis, event.value / axis_end);
    }
}

void pad_removed(SDL_JoystickID pad) {
    gamepad_gone(pad);
    SDL_GameControllerClose(SDL_GameControllerFromInstanceID(pad));
}

}  // namespace

void gamepads_start() {
    SDL_SetHint(SDL_HINT_GAMECONTROLLER_USE_BUTTON_LABELS, "0");  // by their place
    SDL_InitSubSystem(SDL_INIT_GAMECONTROLLER);
}

void gamepad_event_apply(const SDL_Event& event) {
    switch (event.type) {
        case SDL_CONTROLLERDEVICEADDED:
            SDL_GameControllerOpen(event.cdevice.which);
            break;
        case SDL_CONTROLLERDEVICEREMOVED:
            pad_removed(event.cdevice.which);
            break;
        case SDL_CONTROLLERBUTTONDOWN:
        case SDL_CONTROLLERBUTTONUP:
            button_event(event.cbutton);
            break;
        case SDL_CONTROLLERAXISMOTION:
            axis_event(event.caxis);
            break;
        default:
            break;
    }
}
