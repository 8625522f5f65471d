#include "game/card_drawing.h"

#include <algorithm>
#include <cassert>

#include "render/pictures.h"
#include "render/quad.h"
#include "render/sprites.h"

namespace {

struct pip_centre {
    f64 x, y;
};

// In units of the card's side, the centres from the card's centre. Row n is for n + 1 pips.
struct pip_row {
    f64 side;
    pip_centre centres[card_number_count];
};

// clang-format off
constexpr pip_row pip_layout[card_number_count] = {
    {1.0,  {{0, 0}}},
    {0.4,  {{0, -0.25}, {0, 0.25}}},
    {0.4,  {{-0.25, -0.25}, {0.25, -0.25}, {0, 0.25}}},
    {0.4,  {{-0.25, -0.25}, {0.25, -0.25}, {-0.25, 0.25}, {0.25, 0.25}}},
    {0.33, {{-0.25, -0.25}, {0.25, -0.25}, {-0.25, 0.25}, {0.25, 0.25}, {0, 0}}},
    {0.25, {{-0.25, -0.25}, {0.25, -0.25}, {-0.25, 0.25}, {0.25, 0.25}, {-0.25, 0}, {0.25, 0}}},
};
// clang-format on

u32 shape_texture(u8 shape) {
    return shape < card_shape_count ? texture_set.textures[texture_circle + shape] : 0;
}

colour background_tint(const colour& c) {
    return {c.r / 7, c.g / 7, c.b / 7, c.a};
}

void pips_draw(i64 count, f64 x, f64 y, f64 size) {
    assert(1 <= count && count <= card_number_count);
    const pip_row& row = pip_layout[count - 1];
    f64 side = row.side * size;
    for (i64 i = 0; i < count; ++i) {
        pip_centre centre = row.centres[i];
        box place = {x + size / 2 - side / 2 + centre.x * size,
                     y + size / 2 - side / 2 + centre.y * size, side, side};
        quad_place(quad_model(place), screen_space);
        quad_draw();
    }
}

}  // namespace

void card_draw(const card& face, f64 x, f64 y, f64 size) {
    assert(size > 0);
    const colour& tint = colour_rgba(face.colour);
    quad_unit();
    quad_place(quad_model({x, y, size, size}), screen_space);
    quad_sampler();
    quad_picture(texture_white);
    quad_tint(background_tint(tint));
    quad_part(0, 0, 1, 1);
    quad_draw();
    quad_texture(shape_texture(face.shape));
    quad_tint(tint);
    i64 count = std::min(i64{static_cast<i8>(face.number)}, card_number_count);
    if (count > 0) {
        pips_draw(count, x, y, size);
    }
}

void card_highlight_draw(f64 x, f64 y, const colour& tint) {
    f64 side = card_size + 2 * card_margin;
    box_fill({x - card_margin, y - card_margin, side, side}, tint);
}
