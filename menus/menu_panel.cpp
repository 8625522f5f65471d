#include "menus/menu_panel.h"

#include "render/button.h"
#include "render/pictures.h"
#include "render/renderer.h"
#include "render/sprites.h"
#include "render/text.h"

namespace {

constexpr colour panel_tint = {0, 0, 0, 0.8f};

}  // namespace

menu_centre menu_centre_find() {
    return {render_target.width / 2.0, render_target.height / 2.0};
}

void menu_panel_draw(menu_centre centre, f64 half_height) {
    sprite_draw(texture_set.textures[texture_white], centre.x - 400, centre.y - half_height, 800,
                2 * half_height, panel_tint, true);
}

void menu_text_draw(str text, f64 x, f64 y) {
    text_draw_centred(text, x, y, 256, colour_white);
}

i64 menu_stepper(f64 x, f64 y, f64 reach) {
    i64 step = 0;
    step -= button_draw("<", x - reach, y, 64, 64) ? 1 : 0;
    step += button_draw(">", x + reach, y, 64, 64) ? 1 : 0;
    return step;
}
