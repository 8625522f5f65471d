#include "render/sprites.h"

#include <cassert>

#include "platform/maths.h"
#include "render/quad.h"

namespace {

// Lengths of an arrow in its widths.
constexpr f64 head_reach = 8;  // from the head's centre to the end point
constexpr f64 head_size = 6;

constexpr f64 quarter_turn = 1.5707963267948966;  // radians

void picture_draw(texture_slot picture, const mat4& model, const colour& tint, draw_space space) {
    quad_unit();
    quad_picture(picture);
    quad_place(model, space);
    quad_sampler();
    quad_tint(tint);
    quad_part(0, 0, 1, 1);
    quad_draw();
}

}  // namespace

void sprite_draw(texture_slot picture, const box& place, const colour& tint, draw_space space) {
    picture_draw(picture, quad_model(place), tint, space);
}

void box_fill(const box& place, const colour& tint) {
    sprite_draw(texture_white, place, tint);
}

void sprite_draw_rotated(texture_slot picture, f64 x, f64 y, f64 width, f64 height, f64 degrees,
                         f64 pivot_x, f64 pivot_y, const colour& tint, draw_space space) {
    mat4 model = translation(x, y) * rotation(degrees * radians_per_degree) *
                 translation(-pivot_x, -pivot_y) * scaling(width, height);
    picture_draw(picture, model, tint, space);
}

// Both parts are laid out along the x axis, the end point at the origin for the head and the start
// point for the shaft, and then turned into the arrow's direction.
void arrow_draw(f64 x1, f64 y1, f64 x2, f64 y2, f64 width, f64 offset, const colour& tint,
                draw_space space) {
    assert(x1 != x2 || y1 != y2);
    f64 dx = x2 - x1;
    f64 dy = y2 - y1;
    f64 length = math_sqrt(dx * dx + dy * dy);
    mat4 direction = mat4_direction(static_cast<f32>(dx / length), static_cast<f32>(dy / length));
    f64 reach = head_reach * width;
    mat4 shaft = translation(x1, y1) * direction * translation(0, offset - 0.5 * width) *
                 scaling(length - reach, width);
    // The triangle picture points up: it is turned to the right, then along the arrow.
    mat4 head = translation(x2, y2) * direction * translation(-reach, offset) *
                rotation(-quarter_turn) * scaling(head_size * width, head_size * width) *
                translation(-0.5, -0.5);
    quad_sampler();
    quad_tint(tint);
    quad_part(0, 0, 1, 1);
    quad_unit();
    quad_picture(texture_white);
    quad_place(shaft, space);
    quad_draw();
    quad_place(head, space);
    quad_picture(texture_triangle);
    quad_draw();
}
