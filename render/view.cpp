#include "render/view.h"

#include "platform/input.h"
#include "render/renderer.h"

mat4 screen_matrix;
mat4 world_matrix;
mat4 inverse_view_matrix;

box box_around(f64 centre_x, f64 centre_y, f64 width, f64 height) {
    return {centre_x - width / 2, centre_y - height / 2, width, height};
}

bool box_has(const box& place, f64 x, f64 y) {
    return place.x <= x && x < place.x + place.width && place.y <= y && y < place.y + place.height;
}

point view_world_point(f64 pixel_x, f64 pixel_y) {
    const f32* m = inverse_view_matrix.at;
    return {m[0] * pixel_x + m[4] * pixel_y + m[12], m[1] * pixel_x + m[5] * pixel_y + m[13]};
}

box view_window_box(const box& place) {
    const f64 zoom = 1 / f64{inverse_view_matrix.at[0]};
    return {(place.x - inverse_view_matrix.at[12]) * zoom,
            (place.y - inverse_view_matrix.at[13]) * zoom, place.width * zoom, place.height * zoom};
}

pointer pointer_read() {
    pointer mouse = {};
    f64 y_down = 0;
    input_mouse_position(mouse.x, y_down);
    mouse.y = render_target.height - y_down;
    mouse.world = view_world_point(mouse.x, mouse.y);
    mouse.inside = 0 <= mouse.x && mouse.x < render_target.width && 0 < mouse.y &&
                   mouse.y <= render_target.height;
    mouse.on_board = mouse.inside && bottom_panel_height < mouse.y &&
                     mouse.y < render_target.height - top_panel_height;
    mouse.hovers = input_mouse_hovers();
    mouse.pressed = mouse.inside && input_mouse_is_pressed(mouse_left);
    return mouse;
}

bool pointer_is_over(const pointer& mouse, const box& place) {
    return mouse.hovers && box_has(place, mouse.x, mouse.y);
}
