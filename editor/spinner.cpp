#include "editor/spinner.h"

#include "base/arithmetic.h"
#include "base/numbers.h"
#include "render/button.h"
#include "render/text.h"

namespace {

constexpr f64 button_side = 32;

}  // namespace

bool spinner_down(f64 x, f64 y) {
    return button_draw("<", x, y, button_side, button_side);
}

bool spinner_up(f64 x, f64 y) {
    return button_draw(">", x, y, button_side, button_side);
}

void number_draw(i64 value, f64 x, f64 y) {
    text_builder text = {};
    text.arena_id = arena_frame;
    text_builder_put_int(text, value);
    text_draw_centred(text_builder_text(text), x, y, 256, colour_white);
}

i64 wrapping_add(i64 value, i64 step) {
    return static_cast<i64>(static_cast<u64>(value) + static_cast<u64>(step));
}

u8 cyclic_step(u8 value, i64 step, i64 count) {
    return static_cast<u8>(floor_modulo(value + step, count));
}
