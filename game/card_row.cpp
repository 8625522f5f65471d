#include "game/card_row.h"

#include "render/renderer.h"
#include "render/sprites.h"

void card_highlight_draw(f64 x, f64 y, const colour& tint) {
    f64 side = card_size + 2 * card_margin;
    sprite_draw(texture_set.textures[texture_white], x - card_margin, y - card_margin, side, side,
                tint, true);
}
