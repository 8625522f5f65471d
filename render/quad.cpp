#include "render/quad.h"

#include "platform/gpu.h"
#include "render/camera.h"
#include "render/renderer.h"
#include "render/view.h"

mat4 quad_model(f64 x, f64 y, f64 width, f64 height) {
    return mat4_translation(static_cast<f32>(x), static_cast<f32>(y)) *
           mat4_scale(static_cast<f32>(width), static_cast<f32>(height));
}

void quad_unit() {
    texture_unit(0);
}

void quad_texture(u32 texture) {
    texture_bind(texture_2d, texture);
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

void quad_place(const mat4& model, bool screen) {
    mat4 mvp = (screen ? screen_matrix : world_matrix) * model;
    shader_uniform_matrix4fa(simple_shader.mvp, 1, false, mvp.at);
}

void quad_draw() {
    draw_elements(primitive_triangles, component_u8, 0, 6, 0, 1);
}
