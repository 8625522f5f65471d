#include "render/quad.h"

#include <cassert>

#include "platform/gpu.h"
#include "render/renderer.h"

mat4 quad_model(const box& place) {
    return translation(place.x, place.y) * scaling(place.width, place.height);
}

void quad_unit() {
    texture_unit(0);
}

void quad_texture(u32 texture) {
    texture_bind(texture_2d, texture);
}

void quad_picture(texture_slot picture) {
    assert(picture < texture_slot_count);
    quad_texture(texture_set.textures[picture]);
}

void quad_sampler() {
    shader_uniform1i(simple_shader.diffuse, 0);
}

void quad_tint(const colour& tint) {
    const f32 values[] = {tint.r, tint.g, tint.b, tint.a};
    shader_uniform4f(simple_shader.color, values);
}

void quad_part(f64 u, f64 v, f64 width, f64 height) {
    const f32 values[] = {static_cast<f32>(u), static_cast<f32>(v), static_cast<f32>(width),
                          static_cast<f32>(height)};
    shader_uniform4f(simple_shader.uv_rect, values);
}

void quad_place(const mat4& model, draw_space space) {
    mat4 mvp = (space == screen_space ? screen_matrix : world_matrix) * model;
    shader_uniform_matrix4fa(simple_shader.mvp, 1, false, mvp.at);
}

void quad_draw() {
    draw_elements(primitive_triangles, component_u8, 0, 6, 0, 1);
}
