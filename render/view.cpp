#include "render/view.h"

#include "platform/input.h"
#include "render/renderer.h"

mat4 screen_matrix;
mat4 world_matrix;
mat4 inverse_view_matrix;

world_point view_world_point(f64 pixel_x, f64 pixel_y) {
    const f32* m = inverse_view_matrix.at;
    return {m[0] * pixel_x + m[4] * pixel_y + m[12], m[1] * pixel_x + m[5] * pixel_y + m[13]};
}

pointer pointer_read() {
    pointer mouse = {};
    f64 y_down = 0;
    input_mouse_position(mouse.x, y_down);
    mouse.y = render_target.height - y_down;
    mouse.world = view_world_point(mouse.x, mouse.y);
    mouse.on_board =
        bottom_panel_height < mouse.y && mouse.y < render_target.height - top_panel_height;
    mouse.pressed = input_mouse_is_pressed(mouse_left);
    return mouse;
}

bool pointer_in(const pointer& mouse, f64 x, f64 y, f64 width, f64 height) {
    return x <= mouse.x && mouse.x < x + width && y <= mouse.y && mouse.y < y + height;
}
