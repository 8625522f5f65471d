#include "menus/menu_panel.h"

#include "render/button.h"
#include "render/renderer.h"
#include "render/sprites.h"

namespace {

constexpr colour panel_tint = {0, 0, 0, 0.8f};

}  // namespace

menu_centre menu_centre_find() {
    return {render_target.width / 2.0, render_target.height / 2.0};
}

void menu_panel_draw(menu_centre centre, f64 half_height) {
    box_fill({centre.x - 400, centre.y - half_height, 800, 2 * half_height}, panel_tint);
}

i64 menu_stepper(f64 x, f64 y, f64 reach) {
    return stepper_draw(x, y, reach, 64);
}
