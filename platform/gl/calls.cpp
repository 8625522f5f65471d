// The calls of platform/gpu.h that a frame is made of: kept, and made when the frame is drawn.

#include <array>
#include <cassert>
#include <cstddef>
#include <cstring>
#include <span>

#include "platform/gl/constants.h"
#include "platform/gl/coverage.h"
#include "platform/gl/frame.h"
#include "platform/gl/opengl.h"
#include "platform/gl/state.h"
#include "platform/gl/targets.h"
#include "platform/gl/window_picture.h"
#include "platform/gpu.h"

namespace {

using words = std::span<const u32>;

constexpr std::array<f32, 4> black = {0, 0, 0, 1};

// What the game's next calls act on.
struct selected_objects {
    u32 unit;
    u32 program;
    u32 frame_buffer;
    bool whole_viewport;
};

selected_objects selected;

// Of what is drawn with the matrix that was set last.
f32 coverage = 1;
clip_box bounds = clip_all;

clip_box area = clip_all;  // in which the calls draw

template <std::size_t count>
std::array<f32, count> reals_of(words from) {
    assert(from.size() == count);
    std::array<f32, count> reals = {};
    std::memcpy(reals.data(), from.data(), sizeof reals);
    return reals;
}

void uniform_run(frame_call call, u32 program, i32 location, words values) {
    state_program(program);
    if (!state_uniform_is_new(location, values)) {
        return;
    }
    if (call == frame_call::uniform_1i) {
        glUniform1i(location, static_cast<i32>(values[0]));
    } else if (call == frame_call::uniform_1f) {
        glUniform1f(location, reals_of<1>(values)[0]);
    } else if (call == frame_call::uniform_4f) {
        glUniform4fv(location, 1, reals_of<4>(values).data());
    } else {
        GLboolean transpose = call == frame_call::uniform_matrix_transposed ? GL_TRUE : GL_FALSE;
        glUniformMatrix4fv(location, 1, transpose, reals_of<16>(values).data());
    }
}

view_box box_of(words at) {
    return {static_cast<i32>(at[0]), static_cast<i32>(at[1]), static_cast<i32>(at[2]),
            static_cast<i32>(at[3])};
}

// Confines what is drawn into the bound frame buffer.
void area_apply() {
    view_box pixels = damage_pixels(area, target_whole(state_bound_frame_buffer()));
    state_scissor(area == clip_all ? nullptr : &pixels);
}

// The window is cleared where it shows the game's picture, and black beside it.
void clear_run(GLenum mask) {
    const view_box& shown = view.shown;
    bool has_margin = view_size{shown.width, shown.height} != view.window;
    if (state_bound_frame_buffer() == window_picture() && has_margin && area == clip_all) {
        std::array<f32, 4> colour = state_clear_color(black);
        glClear(mask);
        state_clear_color(colour);
        state_scissor(&shown);
    }
    glClear(mask);
    area_apply();
}

}  // namespace

void frame_call_run(frame_call call, words at) {
    switch (call) {
        case frame_call::texture_bind:
            state_texture_unit(at[0]);
            state_texture(at[1]);
            break;
        case frame_call::vertex_array_bind:
            state_vertex_array(at[0]);
            break;
        case frame_call::shader_bind:
            state_program(at[0]);
            break;
        case frame_call::uniform_1i:
        case frame_call::uniform_1f:
        case frame_call::uniform_4f:
        case frame_call::uniform_matrix:
        case frame_call::uniform_matrix_transposed:
            uniform_run(call, at[0], static_cast<i32>(at[1]), at.subspan(2));
            break;
        case frame_call::frame_buffer_bind:
            state_frame_buffer(at[0] == 0 ? window_picture() : at[0]);
            area_apply();
            break;
        case frame_call::blend_enable:
            state_blend(at[0] != 0);
            break;
        case frame_call::viewport:
            state_viewport(target_box(at[0], box_of(at.subspan(1))));
            break;
        case frame_call::clear_color:
            state_clear_color(reals_of<4>(at));
            break;
        case frame_call::clear:
            clear_run(at[0]);
            break;
        case frame_call::draw_elements:
            glDrawElementsInstanced(at[0], static_cast<GLsizei>(at[1]), at[2], gl_offset(at[3]),
                                    static_cast<GLsizei>(at[4]));
            break;
        case frame_call::part_end:
            glFinish();
            break;
        case frame_call::area:
            assert(at.size_bytes() == sizeof area);
            std::memcpy(&area, at.data(), sizeof area);
            area_apply();
            break;
        case frame_call::show:
            window_picture_show();
            break;
    }
}

void texture_unit(u32 unit) {
    selected.unit = unit;
}

void texture_bind([[maybe_unused]] u32 target, u32 texture) {
    assert(target == texture_2d);
    frame_set(frame_call::texture_bind, {selected.unit, texture});
}

void texture_unbind(u32 target) {
    texture_bind(target, 0);
}

void vertex_array_bind(u32 array) {
    frame_set(frame_call::vertex_array_bind, {array});
}

void vertex_array_unbind() {
    vertex_array_bind(0);
}

void shader_bind(u32 program) {
    selected.program = program;
    coverage = 1;
    bounds = clip_all;
    frame_set(frame_call::shader_bind, {program});
}

void shader_uniform1i(i32 location, i32 value) {
    frame_set(frame_call::uniform_1i,
              {selected.program, static_cast<u32>(location), static_cast<u32>(value)});
}

void shader_uniform1f(i32 location, f32 value) {
    frame_set(frame_call::uniform_1f, {selected.program, static_cast<u32>(location)}, {&value, 1});
}

void shader_uniform4f(i32 location, const f32* values) {
    frame_set(frame_call::uniform_4f, {selected.program, static_cast<u32>(location)}, {values, 4});
}

void shader_uniform_matrix4fa(i32 location, [[maybe_unused]] u32 count, bool transpose,
                              const f32* values) {
    assert(count == 1);
    bool is_told = location >= 0 && !transpose;
    coverage = is_told ? unit_square_coverage(values) : 1;
    bounds = is_told ? damage_bounds(values) : clip_all;
    frame_set(transpose ? frame_call::uniform_matrix_transposed : frame_call::uniform_matrix,
              {selected.program, static_cast<u32>(location)}, {values, 16});
}

void frame_buffer_bind([[maybe_unused]] u32 target, u32 frame_buffer) {
    assert(target == frame_buffer_draw);
    selected.frame_buffer = frame_buffer;
    selected.whole_viewport = false;
    frame_set(frame_call::frame_buffer_bind, {frame_buffer});
}

void frame_buffer_unbind(u32 target) {
    frame_buffer_bind(target, 0);
}

void pipeline_blend_enable(bool enable) {
    frame_set(frame_call::blend_enable, {enable ? u32{1} : u32{0}});
}

void pipeline_viewport(i32 x, i32 y, i32 width, i32 height) {
    selected.whole_viewport = target_box(selected.frame_buffer, {x, y, width, height}) ==
                              target_whole(selected.frame_buffer);
    frame_set(frame_call::viewport,
              {selected.frame_buffer, static_cast<u32>(x), static_cast<u32>(y),
               static_cast<u32>(width), static_cast<u32>(height)});
}

void pipeline_clear_color(f32 red, f32 green, f32 blue, f32 alpha) {
    frame_set(frame_call::clear_color, {}, std::array{red, green, blue, alpha});
}

void pipeline_clear(u32 mask) {
    frame_draw(frame_call::clear, {gl_of(clear_masks, mask)}, 1, clip_all);
}

void draw_elements(u32 kind, u32 index_type, u32 first, u32 count, [[maybe_unused]] u32 base_vertex,
                   u32 instances) {
    assert(base_vertex == 0);  // OpenGL ES 3.0 knows no other
    frame_draw(
        frame_call::draw_elements,
        {gl_of(primitives, kind), count, gl_of(component_types, index_type), first, instances},
        coverage, selected.whole_viewport ? bounds : clip_all);
}

bool pipeline_is_same() {
    return frame_is_same();
}

u32 pipeline_get_error() {
    frame_finish();
    GLenum error = frame_is_drawn() ? glGetError() : GL_NO_ERROR;
    return error == context_is_lost ? GL_NO_ERROR : error;
}
