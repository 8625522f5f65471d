#include "game/pointer.h"

#include "platform/input.h"
#include "render/renderer.h"
#include "render/view.h"

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
