#include "render/renderer.h"

#include <cassert>
#include <cstddef>

#include "base/message.h"
#include "platform/gpu.h"
#include "render/font.h"
#include "render/matrix.h"
#include "render/pictures.h"
#include "render/shader_sources.h"

quad_mesh_record quad_mesh;
simple_shader_record simple_shader;
gamma_shader_record gamma_shader;
render_target_record render_target;

namespace {

constexpr f32 gamma_exponent = 2.2f;

constexpr str frame_buffer_errors[] = {
    "",
    "undefined",
    "incomplete attachment",
    "missing attachment",
    "incomplete draw buffer",
    "incomplete read attachment",
    "incomplete attachment",
    "incomplete layer attachment",
    "unsupported",
};
static_assert(sizeof frame_buffer_errors / sizeof frame_buffer_errors[0] ==
              frame_buffer_status_count);

struct vertex {
    f32 x, y;
    f32 u, v;
};

void quad_mesh_create() {
    constexpr vertex vertices[] = {{0, 0, 0, 0}, {1, 0, 1, 0}, {0, 1, 0, 1}, {1, 1, 1, 1}};
    constexpr u8 indices[] = {0, 1, 2, 2, 1, 3};
    quad_mesh.vertex_array = vertex_array_create();
    quad_mesh.vertex_buffer = buffer_create();
    quad_mesh.index_buffer = buffer_create();
    vertex_array_bind(quad_mesh.vertex_array);
    buffer_bind(buffer_vertices, quad_mesh.vertex_buffer);
    buffer_data(buffer_vertices, sizeof vertices, vertices, buffer_static);
    attribute_enable(0, true);
    attribute_format(0, 2, component_f32, false, sizeof(vertex), offsetof(vertex, x));
    attribute_enable(1, true);
    attribute_format(1, 2, component_f32, false, sizeof(vertex), offsetof(vertex, u));
    buffer_bind(buffer_indices, quad_mesh.index_buffer);
    buffer_data(buffer_indices, sizeof indices, indices, buffer_static);
    vertex_array_unbind();
}

// Compiles one of the programs; `name` is for the message on failure.
bool shader_build(u32 program, str source, str name) {
    char message[256] = {};
    shader_result result = shader_source(program, source, message, sizeof message);
    if (!result.ok) {
        message_write({"shader error for ", name, " shader!\n", result.message, "\n"});
    }
    return result.ok;
}

bool simple_shader_create() {
    simple_shader.program = shader_create();
    if (!shader_build(simple_shader.program, simple_shader_text, "simple")) {
        return false;
    }
    simple_shader.mvp = shader_get_uniform_location(simple_shader.program, "mvp");
    simple_shader.diffuse = shader_get_uniform_location(simple_shader.program, "diffuse");
    simple_shader.gamma = shader_get_uniform_location(simple_shader.program, "gamma");
    simple_shader.color = shader_get_uniform_location(simple_shader.program, "color");
    simple_shader.uv_rect = shader_get_uniform_location(simple_shader.program, "uv_rect");
    return true;
}

bool gamma_shader_create() {
    gamma_shader.program = shader_create();
    if (!shader_build(gamma_shader.program, gamma_shader_text, "gamma")) {
        return false;
    }
    gamma_shader.mvp = shader_get_uniform_location(gamma_shader.program, "mvp");
    gamma_shader.diffuse = shader_get_uniform_location(gamma_shader.program, "diffuse");
    gamma_shader.gamma = shader_get_uniform_location(gamma_shader.program, "gamma");
    return true;
}

void render_target_destroy() {
    if (render_target.frame_buffer != 0) {
        frame_buffer_destroy(render_target.frame_buffer);
    }
    if (render_target.texture != 0) {
        texture_destroy(render_target.texture);
    }
}

void frame_buffer_status_report() {
    u32 status = frame_buffer_get_status(frame_buffer_draw);
    if (status != frame_buffer_complete && status < frame_buffer_status_count) {
        message_write({"frame buffer error: ", frame_buffer_errors[status], "\n"});
    }
}

}  // namespace

void renderer_init() {
    pictures_load();
    font_load();
    quad_mesh_create();
    if (simple_shader_create() && gamma_shader_create()) {
        render_target_rebuild();
    }
}

void renderer_release() {
    for (u32 texture : texture_set.textures) {
        texture_destroy(texture);
    }
    texture_destroy(font.texture);
    buffer_destroy(quad_mesh.vertex_buffer);
    buffer_destroy(quad_mesh.index_buffer);
    vertex_array_destroy(quad_mesh.vertex_array);
    shader_destroy(simple_shader.program);
    shader_destroy(gamma_shader.program);
    texture_destroy(render_target.texture);
    frame_buffer_destroy(render_target.frame_buffer);
}

void render_target_rebuild() {
    assert(render_target.width > 0 && render_target.height > 0);
    render_target_destroy();
    u32 width = static_cast<u32>(render_target.width);
    u32 height = static_cast<u32>(render_target.height);
    render_target.frame_buffer = frame_buffer_create();
    render_target.texture = texture_make({nullptr, width, height}, filter_nearest, filter_nearest);
    frame_buffer_bind(frame_buffer_draw, render_target.frame_buffer);
    frame_buffer_texture(frame_buffer_draw, attachment_colour, 0, render_target.texture, 0);
    constexpr u32 draw_buffers[] = {0};
    pipeline_draw_buffers(draw_buffers, 1);
    frame_buffer_status_report();
    frame_buffer_unbind(frame_buffer_draw);
}

void render_frame_begin() {
    vertex_array_bind(quad_mesh.vertex_array);
    frame_buffer_bind(frame_buffer_draw, render_target.frame_buffer);
    pipeline_blend_enable(true);
    pipeline_viewport(0, 0, render_target.width, render_target.height);
    pipeline_clear_color(0, 0, 0.2f, 1);
    pipeline_clear(clear_colour);
    shader_bind(simple_shader.program);
    shader_uniform1f(simple_shader.gamma, gamma_exponent);
}

void render_frame_end() {
    pipeline_blend_enable(false);
    frame_buffer_unbind(frame_buffer_draw);
    // Covered whole by the frame: a magenta that shows means that the frame was not drawn.
    pipeline_clear_color(1, 0, 1, 1);
    pipeline_clear(clear_colour);
    pipeline_viewport(0, 0, render_target.width, render_target.height);
    shader_bind(gamma_shader.program);
    texture_unit(0);
    texture_bind(texture_2d, render_target.texture);
    mat4 whole_window = mat4_translation(-1, -1) * mat4_scale(2, 2);
    shader_uniform_matrix4fa(gamma_shader.mvp, 1, false, whole_window.at);
    shader_uniform1i(gamma_shader.diffuse, 0);
    shader_uniform1f(gamma_shader.gamma, gamma_exponent);
    draw_elements(primitive_triangles, component_u8, 0, 6, 0, 1);
    texture_unbind(texture_2d);
}
