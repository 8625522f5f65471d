#include "tests/gl/player.h"

#include <epoxy/egl.h>
#include <epoxy/gl.h>

#include <algorithm>
#include <cassert>
#include <iterator>
#include <map>
#include <utility>

#include "platform/common/view.h"
#include "platform/gl/frame.h"
#include "platform/gl/state.h"
#include "platform/gl/window_picture.h"
#include "platform/gpu.h"

namespace {

// With margins beside and above the game's picture; the first is the largest.
constexpr view_size windows[] = {{283, 211}, {150, 200}, {283, 40}};
constexpr u32 frames_between = 5;
constexpr u32 frames_a_size = 13;
constexpr u32 frames_a_hold = 7;

using pixels = std::vector<u32>;

struct player {
    EGLDisplay display;
    EGLContext context;
    std::map<std::pair<gpu_op, i64>, u32> names;   // by the recorded ones
    std::map<std::pair<u32, i64>, i32> locations;  // by program
    u32 program;
    view_size logical;
    bool failed;
    u32 frames;
    int compared;
};

player playing;

void context_open() {
    playing.display =
        eglGetPlatformDisplayEXT(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    eglInitialize(playing.display, nullptr, nullptr);
    eglBindAPI(EGL_OPENGL_API);
    constexpr EGLint wanted[] = {
        EGL_SURFACE_TYPE, EGL_PBUFFER_BIT, EGL_RED_SIZE, 8, EGL_ALPHA_SIZE, 8, EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    eglChooseConfig(playing.display, wanted, &config, 1, &count);
    constexpr EGLint size[] = {EGL_WIDTH, windows[0].width, EGL_HEIGHT, windows[0].height,
                               EGL_NONE};
    EGLSurface surface = eglCreatePbufferSurface(playing.display, config, size);
    constexpr EGLint version[] = {EGL_CONTEXT_MAJOR_VERSION, 3, EGL_CONTEXT_MINOR_VERSION, 3,
                                  EGL_NONE};
    playing.context = eglCreateContext(playing.display, config, nullptr, version);
    eglMakeCurrent(playing.display, surface, surface, playing.context);
}

u32 made(const gpu_call& call, u32 name) {
    playing.names[{call.op, call.result}] = name;
    return name;
}

bool shader_make(u32 program, const std::string& text) {
    char message[256];
    return shader_source(program, {text.data(), static_cast<i64>(text.size())}, message,
                         sizeof message)
        .ok;
}

decltype(epoxy_glGetString) names_get;

const GLubyte* other_renderer(GLenum name) {
    return name == GL_RENDERER ? reinterpret_cast<const GLubyte*>("another") : names_get(name);
}

void window_set() {
    view_set(playing.logical, windows[playing.frames / frames_a_size % std::size(windows)]);
    frame_ask();
}

// A texture to draw into has the size of the game's picture.
void texture_fill(const gpu_call& call) {
    auto n = [&](std::size_t i) { return static_cast<u32>(call.numbers[i]); };
    if (call.bytes.empty()) {
        playing.logical = {static_cast<i32>(n(3)), static_cast<i32>(n(4))};
        window_set();
    }
    texture_image_2d(n(0), n(1), n(2), n(3), n(4), n(5), n(6),
                     call.bytes.empty() ? nullptr : call.bytes.data());
}

void play(const gpu_call& call) {
    auto n = [&](std::size_t i) { return static_cast<u32>(call.numbers[i]); };
    auto name = [&](gpu_op create, std::size_t i) {
        return playing.names[{create, call.numbers[i]}];
    };
    auto location = [&] { return playing.locations[{playing.program, call.numbers[0]}]; };
    const auto& reals = call.reals;
    // clang-format off
    switch (call.op) {
        case gpu_op::texture_create: made(call, texture_create()); break;
        case gpu_op::texture_destroy: texture_destroy(name(gpu_op::texture_create, 0)); break;
        case gpu_op::texture_unit: texture_unit(n(0)); break;
        case gpu_op::texture_bind: texture_bind(n(0), name(gpu_op::texture_create, 1)); break;
        case gpu_op::texture_unbind: texture_unbind(n(0)); break;
        case gpu_op::texture_image_2d: texture_fill(call); break;
        case gpu_op::texture_parameter_wrap: texture_parameter_wrap(n(0), n(1), n(2)); break;
        case gpu_op::texture_parameter_filter: texture_parameter_filter(n(0), n(1), n(2)); break;
        case gpu_op::texture_generate_mipmap: texture_generate_mipmap(n(0)); break;
        case gpu_op::buffer_create: made(call, buffer_create()); break;
        case gpu_op::buffer_destroy: buffer_destroy(name(gpu_op::buffer_create, 0)); break;
        case gpu_op::buffer_bind: buffer_bind(n(0), name(gpu_op::buffer_create, 1)); break;
        case gpu_op::buffer_data: buffer_data(n(0), call.numbers[1], call.bytes.data(), n(2)); break;
        case gpu_op::vertex_array_create: made(call, vertex_array_create()); break;
        case gpu_op::vertex_array_destroy: vertex_array_destroy(name(gpu_op::vertex_array_create, 0)); break;
        case gpu_op::vertex_array_bind: vertex_array_bind(name(gpu_op::vertex_array_create, 0)); break;
        case gpu_op::vertex_array_unbind: vertex_array_unbind(); break;
        case gpu_op::attribute_enable: attribute_enable(n(0), n(1) != 0); break;
        case gpu_op::attribute_format: attribute_format(n(0), n(1), n(2), n(3) != 0, n(4), n(5)); break;
        case gpu_op::shader_create: made(call, shader_create()); break;
        case gpu_op::shader_destroy: shader_destroy(name(gpu_op::shader_create, 0)); break;
        case gpu_op::shader_source: shader_make(name(gpu_op::shader_create, 0), call.bytes); break;
        case gpu_op::shader_get_uniform_location: {
            u32 program = name(gpu_op::shader_create, 0);
            playing.locations[{program, call.result}] = shader_get_uniform_location(
                program, {call.bytes.data(), static_cast<i64>(call.bytes.size())});
            break;
        }
        case gpu_op::shader_bind: shader_bind(playing.program = name(gpu_op::shader_create, 0)); break;
        case gpu_op::shader_uniform1i: shader_uniform1i(location(), static_cast<i32>(n(1))); break;
        case gpu_op::shader_uniform1f: shader_uniform1f(location(), reals[0]); break;
        case gpu_op::shader_uniform4f: shader_uniform4f(location(), reals.data()); break;
        case gpu_op::shader_uniform_matrix4fa: shader_uniform_matrix4fa(location(), n(1), n(2) != 0, reals.data()); break;
        case gpu_op::frame_buffer_create: made(call, frame_buffer_create()); break;
        case gpu_op::frame_buffer_destroy: frame_buffer_destroy(name(gpu_op::frame_buffer_create, 0)); break;
        case gpu_op::frame_buffer_bind: frame_buffer_bind(n(0), name(gpu_op::frame_buffer_create, 1)); break;
        case gpu_op::frame_buffer_unbind: frame_buffer_unbind(n(0)); break;
        case gpu_op::frame_buffer_texture: frame_buffer_texture(n(0), n(1), n(2), name(gpu_op::texture_create, 3), n(4)); break;
        case gpu_op::pipeline_cull_enable: pipeline_cull_enable(n(0) != 0); break;
        case gpu_op::pipeline_cull_orientation: pipeline_cull_orientation(n(0)); break;
        case gpu_op::pipeline_blend_enable: pipeline_blend_enable(n(0) != 0); break;
        case gpu_op::pipeline_blend_factor: pipeline_blend_factor(n(0), n(1)); break;
        case gpu_op::pipeline_viewport: pipeline_viewport(static_cast<i32>(n(0)), static_cast<i32>(n(1)), static_cast<i32>(n(2)), static_cast<i32>(n(3))); break;
        case gpu_op::pipeline_clear_color: pipeline_clear_color(reals[0], reals[1], reals[2], reals[3]); break;
        case gpu_op::pipeline_clear: pipeline_clear(n(0)); break;
        case gpu_op::pipeline_get_error: playing.failed |= pipeline_get_error() != 0; break;
        case gpu_op::draw_elements: draw_elements(n(0), n(1), n(2), n(3), n(4), n(5)); break;
        default: break;
    }
    // clang-format on
}

void play_all(const std::vector<gpu_call>& calls) {
    std::for_each(calls.begin(), calls.end(), play);
}

pixels picture() {
    pixels all(static_cast<std::size_t>(view.window.width * view.window.height));
    state_frame_buffer(0);
    glReadPixels(0, 0, view.window.width, view.window.height, GL_RGBA, GL_UNSIGNED_BYTE,
                 all.data());
    return all;
}

bool is_frame(const std::vector<gpu_call>& calls) {
    return std::any_of(calls.begin(), calls.end(),
                       [](const gpu_call& call) { return call.op == gpu_op::pipeline_get_error; });
}

bool makes_objects(const std::vector<gpu_call>& calls) {
    return std::any_of(calls.begin(), calls.end(),
                       [](const gpu_call& call) { return call.op == gpu_op::texture_create; });
}

}  // namespace

void gl_play_begin(bool window_forgets) {
    context_open();
    if (window_forgets) {
        glGetString(GL_RENDERER);  // the library looks its function up now
        names_get = std::exchange(epoxy_glGetString, other_renderer);
    }
}

bool gl_play(const std::vector<gpu_call>& calls) {
    frame_hold(playing.frames % frames_a_hold == 0);
    if (playing.frames % frames_a_size == 0) {
        window_set();
    }
    play_all(calls);
    frame_hold(false);
    if (!is_frame(calls) || makes_objects(calls) || ++playing.frames % frames_between != 0) {
        return !playing.failed;
    }
    play_all(calls);
    pixels in_part = picture();
    frame_ask();
    play_all(calls);
    ++playing.compared;
    return in_part == picture() && !playing.failed;
}

int gl_play_end() {
    for (const auto& [made, name] : playing.names) {
        if (made.first == gpu_op::texture_create) {
            texture_destroy(name);
        }
    }
    playing.names.clear();
    playing.locations.clear();
    return std::exchange(playing.compared, 0);
}
