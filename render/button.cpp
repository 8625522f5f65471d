#include "render/button.h"

#include <cassert>

#include "render/sprites.h"
#include "render/text.h"
#include "render/view.h"
#include "render/walk.h"

namespace {

constexpr colour hover_veil = {1, 1, 1, 0.5f};

}  // namespace

bool button_draw(str label, f64 centre_x, f64 centre_y, f64 width, f64 height) {
    assert(width > 0 && height > 0);
    box face = box_around(centre_x, centre_y, width, height);
    sprite_draw(texture_gradient3, face, colour_white);
    label_draw(label, centre_x, centre_y);
    walk_note(face);
    pointer mouse = pointer_read();
    if (!pointer_is_over(mouse, face)) {
        return false;
    }
    box_fill(face, hover_veil);
    return mouse.pressed;
}

bool button_draw_less(f64 centre_x, f64 centre_y, f64 side) {
    return button_draw("<", centre_x, centre_y, side, side);
}

bool button_draw_more(f64 centre_x, f64 centre_y, f64 side) {
    return button_draw(">", centre_x, centre_y, side, side);
}

i64 stepper_draw(f64 x, f64 y, f64 reach, f64 side) {
    i64 step = 0;
    step -= button_draw_less(x - reach, y, side) ? 1 : 0;
    step += button_draw_more(x + reach, y, side) ? 1 : 0;
    return step;
}
