#include "platform/gl/state.h"

#include <algorithm>
#include <cassert>
#include <utility>
#include <vector>

#include "platform/gl/opengl.h"

namespace {

constexpr u32 unit_count = 16;  // what every OpenGL ES 3.0 has

using uniform_words = std::vector<u32>;

// As OpenGL starts; the viewport has no size that it could start with.
struct gl_state {
    u32 unit = 0;
    std::array<u32, unit_count> textures = {};
    u32 vertex_array = 0;
    u32 program = 0;
    u32 frame_buffer = 0;
    bool blend = false;
    view_box viewport = {0, 0, -1, -1};
    bool confined = false;
    view_box scissor = {0, 0, -1, -1};
    std::array<f32, 4> clear_color = {};
    std::vector<std::vector<uniform_words>> uniforms;  // by program, then location
};

gl_state now;

template <typename element>
element& grown(std::vector<element>& list, std::size_t place) {
    if (place >= list.size()) {
        list.resize(place + 1);
    }
    return list[place];
}

// Whether a known value had to be changed to become the wanted one.
template <typename value>
bool changed(value& known, const value& wanted) {
    return std::exchange(known, wanted) != wanted;
}

}  // namespace

void state_texture_unit(u32 unit) {
    assert(unit < unit_count);
    if (changed(now.unit, unit)) {
        glActiveTexture(GL_TEXTURE0 + unit);
    }
}

void state_texture(u32 texture) {
    if (changed(now.textures[now.unit], texture)) {
        glBindTexture(GL_TEXTURE_2D, texture);
    }
}

u32 state_bound_texture() {
    return now.textures[now.unit];
}

void state_vertex_array(u32 array) {
    if (changed(now.vertex_array, array)) {
        glBindVertexArray(array);
    }
}

void state_program(u32 program) {
    if (changed(now.program, program)) {
        glUseProgram(program);
    }
}

bool state_uniform_is_new(i32 location, std::span<const u32> words) {
    if (location < 0) {
        return false;
    }
    uniform_words& known =
        grown(grown(now.uniforms, now.program), static_cast<std::size_t>(location));
    if (std::equal(known.begin(), known.end(), words.begin(), words.end())) {
        return false;
    }
    known.assign(words.begin(), words.end());
    return true;
}

void state_frame_buffer(u32 frame_buffer) {
    if (changed(now.frame_buffer, frame_buffer)) {
        glBindFramebuffer(GL_FRAMEBUFFER, frame_buffer);
    }
}

u32 state_bound_frame_buffer() {
    return now.frame_buffer;
}

void state_blend(bool enable) {
    if (changed(now.blend, enable)) {
        (enable ? glEnable : glDisable)(GL_BLEND);
    }
}

void state_viewport(const view_box& box) {
    if (changed(now.viewport, box)) {
        glViewport(box.x, box.y, box.width, box.height);
    }
}

void state_scissor(const view_box* box) {
    if (changed(now.confined, box != nullptr)) {
        (now.confined ? glEnable : glDisable)(GL_SCISSOR_TEST);
    }
    if (box != nullptr && changed(now.scissor, *box)) {
        glScissor(box->x, box->y, box->width, box->height);
    }
}

std::array<f32, 4> state_clear_color(const std::array<f32, 4>& colour) {
    std::array<f32, 4> before = std::exchange(now.clear_color, colour);
    if (before != colour) {
        glClearColor(colour[0], colour[1], colour[2], colour[3]);
    }
    return before;
}

void state_forget_texture(u32 texture) {
    std::replace(now.textures.begin(), now.textures.end(), texture, 0U);
}

void state_forget_vertex_array(u32 array) {
    now.vertex_array = now.vertex_array == array ? 0 : now.vertex_array;
}

void state_forget_frame_buffer(u32 frame_buffer) {
    now.frame_buffer = now.frame_buffer == frame_buffer ? 0 : now.frame_buffer;
}

void state_forget_program(u32 program) {
    grown(now.uniforms, program).clear();
}

void state_forget_all() {
    now = {};
}
