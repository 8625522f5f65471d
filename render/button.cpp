#include "render/button.h"

#include "platform/input.h"
#include "render/pictures.h"
#include "render/renderer.h"
#include "render/sprites.h"
#include "render/text.h"

namespace {

constexpr colour hover_veil = {1, 1, 1, 0.5f};

bool pointer_in(f64 left, f64 bottom, f64 right, f64 top) {
    f64 x = 0;
    f64 y_down = 0;
    input_mouse_position(x, y_down);
    f64 y = render_target.height - y_down;
    return left <= x && x < right && bottom <= y && y < top;
}

}  // namespace

bool button_draw(str label, f64 centre_x, f64 centre_y, f64 width, f64 height) {
    f64 left = centre_x - width / 2;
    f64 bottom = centre_y - height / 2;
    sprite_draw(texture_set.textures[texture_gradient3], left, bottom, width, height, colour_white,
                true);
    text_draw_centred(label, centre_x, centre_y, 256, colour_white);
    if (!pointer_in(left, bottom, centre_x + width / 2, centre_y + height / 2)) {
        return false;
    }
    sprite_draw(texture_set.textures[texture_white], left, bottom, width, height, hover_veil, true);
    return input_mouse_is_pressed(mouse_left);
}
