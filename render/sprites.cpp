#include "render/sprites.h"

#include "platform/maths.h"
#include "render/matrix.h"
#include "render/pictures.h"
#include "render/quad.h"

namespace {

// Lengths of an arrow in its widths.
constexpr f64 head_reach = 8;  // from the head's centre to the end point
constexpr f64 head_size = 6;

constexpr f64 quarter_turn = 1.5707963267948966;  // radians

mat4 translation(f64 x, f64 y) {
    return mat4_translation(static_cast<f32>(x), static_cast<f32>(y));
}

mat4 rotation(f64 angle) {
    return mat4_rotation(static_cast<f32>(angle));
}

mat4 scale(f64 sx, f64 sy) {
    return mat4_scale(static_cast<f32>(sx), static_cast<f32>(sy));
}

void picture_draw(u32 texture, const mat4& model, const colour& tint, bool screen) {
    quad_unit();
    quad_texture(texture);
    quad_place(model, screen);
    quad_sampler();
    quad_tint(tint);
    quad_part(0, 0, 1, 1);
    quad_draw();
}

}  // namespace

void sprite_draw(u32 texture, f64 x, f64 y, f64 width, f64 height, const colour& tint,
                 bool screen) {
    picture_draw(texture, quad_model(x, y, width, height), tint, screen);
}

void sprite_draw_rotated(u32 texture, f64 x, f64 y, f64 width, f64 height, f64 degrees, f64 pivot_x,
                         f64 pivot_y, const colour& tint, bool screen) {
    mat4 model = translation(x, y) * rotation(degrees * radians_per_degree) *
                 translation(-pivot_x, -pivot_y) * scale(width, height);
    picture_draw(texture, model, tint, screen);
}

void arrow_draw(f64 x1, f64 y1, f64 x2, f64 y2, f64 width, f64 offset, const colour& tint,
                bool screen) {
    f64 dx = x2 - x1;
    f64 dy = y2 - y1;
    f64 length = math_sqrt(dx * dx + dy * dy);
    mat4 direction = mat4_direction(static_cast<f32>(dx / length), static_cast<f32>(dy / length));
    f64 reach = head_reach * width;
    mat4 shaft = translation(x1, y1) * direction * translation(0, offset - 0.5 * width) *
                 scale(length - reach, width);
    // The triangle picture points up: it is turned to the right, then along the arrow.
    mat4 head = translation(x2, y2) * direction * translation(-reach, offset) *
                rotation(-quarter_turn) * scale(head_size * width, head_size * width) *
                translation(-0.5, -0.5);
    quad_sampler();
    quad_tint(tint);
    quad_part(0, 0, 1, 1);
    quad_unit();
    quad_texture(texture_set.textures[texture_white]);
    quad_place(shaft, screen);
    quad_draw();
    quad_place(head, screen);
    quad_texture(texture_set.textures[texture_triangle]);
    quad_draw();
}
