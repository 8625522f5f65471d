#include "render/camera.h"

#include <algorithm>
#include <cassert>

#include "base/time_step.h"
#include "platform/input.h"
#include "render/view.h"
#include "shown/screens.h"

camera_record camera;

namespace {

constexpr f64 zoom_min = 0.25;
constexpr f64 zoom_max = 4;
constexpr f64 zoom_speed = 0.5;        // per second of a held key
constexpr f64 zoom_wheel_step = 0.25;  // per step of the wheel

// Pixels from the bottom-left corner to clip space, -1 to 1 on both axes.
mat4 projection(f64 width, f64 height) {
    mat4 p = {};
    p.at[0] = static_cast<f32>(2 / width);
    p.at[5] = static_cast<f32>(2 / height);
    p.at[10] = -1;
    p.at[12] = -1;
    p.at[13] = -1;
    p.at[15] = 1;
    return p;
}

f64 amount_while_held(u32 key, f64 amount) {
    return input_key_is_held(key) ? amount : 0;
}

void keys_apply() {
    f64 step = camera.speed / camera.zoom * frame_dt;
    camera.x -= amount_while_held(key_a, step);
    camera.x += amount_while_held(key_d, step);
    camera.y += amount_while_held(key_w, step);
    camera.y -= amount_while_held(key_s, step);
    camera.zoom -= amount_while_held(key_q, zoom_speed * frame_dt);
    camera.zoom += amount_while_held(key_e, zoom_speed * frame_dt);
}

void wheel_apply(i32 width, i32 height) {
    f64 x = 0;
    f64 y_down = 0;
    input_mouse_position(x, y_down);
    if (0 <= x && x < width && 0 <= y_down && y_down < height - bottom_panel_height) {
        camera.zoom += input_mouse_wheel() * zoom_wheel_step;
    }
}

// Pulls the board along, unless the drag began on the bottom panel, and keeps what is between the
// fingers there also where the zoom ends.
void drag_apply(i32 width, i32 height) {
    input_drag drag = input_dragged();
    if (!board_is_shown() || drag.from_y >= height - bottom_panel_height) {
        return;
    }
    f64 zoom = std::clamp(camera.zoom * drag.zoom, zoom_min, zoom_max);
    f64 x = drag.x - width / 2.0;
    f64 y = height / 2.0 - drag.y;
    camera.x += x / camera.zoom - (x + drag.dx) / zoom;
    camera.y += y / camera.zoom - (y - drag.dy) / zoom;
    camera.zoom = zoom;
}

void view_reset() {
    camera.x = 0;
    camera.y = 0;
    camera.zoom = 1;
}

}  // namespace

void camera_matrices_build(i32 width, i32 height) {
    assert(width > 0 && height > 0 && camera.zoom > 0);
    f64 centre_x = width / 2.0;
    f64 centre_y = height / 2.0;
    screen_matrix = projection(width, height);
    world_matrix = screen_matrix * translation(centre_x, centre_y) *
                   scaling(camera.zoom, camera.zoom) * translation(-camera.x, -camera.y);
    inverse_view_matrix = translation(camera.x, camera.y) *
                          scaling(1 / camera.zoom, 1 / camera.zoom) *
                          translation(-centre_x, -centre_y);
}

void camera_input_apply(i32 width, i32 height) {
    if (!screens.text_entry_open) {
        keys_apply();
    }
    wheel_apply(width, height);
    camera.zoom = std::clamp(camera.zoom, zoom_min, zoom_max);
    drag_apply(width, height);
    if (input_key_is_pressed(key_r) && !screens.text_entry_open) {
        view_reset();
    }
}
