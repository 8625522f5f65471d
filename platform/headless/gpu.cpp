#include "platform/gpu.h"

#include <algorithm>
#include <bit>
#include <set>
#include <span>
#include <sstream>
#include <string_view>
#include <utility>

#include "base/fingerprint.h"
#include "platform/headless/gpu_headless.h"
#include "platform/headless/headless.h"

namespace {

using uniform_value = std::array<f32, 16>;

struct program {
    std::vector<std::string> uniforms;  // a name's place is its location
    std::vector<uniform_value> values;
};

// The GPU objects of one kind. A handle is never used twice, so that a stale one shows.
struct object_kind {
    u32 last_handle = 0;
    std::set<u32> live;
};

// What a draw is made with, kept also while nothing is recorded.
struct bindings {
    u32 frame_buffer = 0;
    u32 program = 0;
    u32 unit = 0;
    std::array<u32, 16> textures = {};  // by unit
};

struct gpu {
    bindings bound;
    std::array<object_kind, static_cast<std::size_t>(gpu_op::count)> objects;  // by create call
    std::vector<program> programs = std::vector<program>(1);  // by handle; the first is no program
    i64 shader_sources = 0;
    i64 failing_source = -1;
    std::string failing_message;
    u32 frame_buffer_status = frame_buffer_complete;
    u32 error = 0;
    u64 fingerprint = 0;         // of the calls of the frame that is being made
    u64 fingerprint_before = 0;  // of the frame before
    bool same = false;           // in the frame finished last
    bool recording = false;
    std::vector<gpu_call> calls;
    std::vector<gpu_draw> draws;
};

gpu device;

// Only checked builds ask whether frames differ.
void fingerprint_call([[maybe_unused]] gpu_op op,
                      [[maybe_unused]] std::initializer_list<i64> numbers,
                      [[maybe_unused]] std::span<const f32> reals) {
#ifdef QUORREL_CHECK
    fingerprint_add(device.fingerprint, static_cast<u64>(op));
    for (i64 number : numbers) {
        fingerprint_add(device.fingerprint, static_cast<u64>(number));
    }
    for (f32 real : reals) {
        fingerprint_add(device.fingerprint, std::bit_cast<u32>(real));
    }
#endif
}

void keep(gpu_op op, std::initializer_list<i64> numbers, std::span<const f32> reals = {},
          str bytes = {}, i64 result = 0) {
    fingerprint_call(op, numbers, reals);
    if (device.recording) {
        device.calls.push_back(
            {op, numbers, {reals.begin(), reals.end()}, {bytes.begin(), bytes.end()}, result});
    }
}

object_kind& objects_of(gpu_op create) {
    return device.objects[static_cast<std::size_t>(create)];
}

u32 object_create(gpu_op create) {
    object_kind& kind = objects_of(create);
    u32 handle = ++kind.last_handle;
    kind.live.insert(handle);
    keep(create, {}, {}, {}, handle);
    return handle;
}

void object_destroy(gpu_op create, gpu_op destroy, u32 handle) {
    objects_of(create).live.erase(handle);
    keep(destroy, {handle});
}

str data_bytes(const void* data, i64 size) {
    return data != nullptr ? str{static_cast<const char*>(data), size} : str{};
}

// The names that a shader text declares as uniforms, each once.
std::vector<std::string> uniforms_of(str source) {
    std::vector<std::string> names;
    std::istringstream words(std::string(source.begin(), source.end()));
    std::string word;
    std::string type;
    std::string name;
    while (words >> word) {
        if (word == "uniform" && words >> type >> name) {
            name = name.substr(0, name.find(';'));
            if (std::find(names.begin(), names.end(), name) == names.end()) {
                names.push_back(name);
            }
        }
    }
    return names;
}

i64 uniform_place(const program& in, std::string_view name) {
    auto found = std::find(in.uniforms.begin(), in.uniforms.end(), name);
    return found != in.uniforms.end() ? found - in.uniforms.begin() : -1;
}

uniform_value uniform_get(const program& in, std::string_view name) {
    i64 place = uniform_place(in, name);
    return place >= 0 ? in.values[static_cast<std::size_t>(place)] : uniform_value{};
}

void uniform_set(i32 location, std::span<const f32> values) {
    program& in = device.programs[device.bound.program];
    std::size_t place = static_cast<std::size_t>(location);
    if (location >= 0 && place < in.values.size()) {
        std::copy(values.begin(), values.end(), in.values[place].begin());
    }
}

std::array<f32, 4> first_four(const uniform_value& value) {
    return {value[0], value[1], value[2], value[3]};
}

gpu_draw draw_with_state() {
    const bindings& bound = device.bound;
    const program& in = device.programs[bound.program];
    u32 unit = static_cast<u32>(uniform_get(in, "diffuse")[0]);
    return {bound.frame_buffer,
            bound.program,
            unit < bound.textures.size() ? bound.textures[unit] : 0,
            uniform_get(in, "mvp"),
            first_four(uniform_get(in, "color")),
            first_four(uniform_get(in, "uv_rect")),
            uniform_get(in, "gamma")[0]};
}

// The compiler's refusal, cut to the caller's memory.
shader_result source_refused(char* message, i64 message_size) {
    const std::string& text = device.failing_message;
    i64 length = std::min(message_size, static_cast<i64>(text.size()));
    std::copy_n(text.begin(), length, message);
    return {false, {message, length}};
}

}  // namespace

void gpu_reset() {
    device = {};
}

void headless_fail_shader(u32 nth, std::string message) {
    device.failing_source = nth;
    device.failing_message = std::move(message);
}

void headless_set_frame_buffer_status(u32 status) {
    device.frame_buffer_status = status;
}

void headless_set_gpu_error(u32 error) {
    device.error = error;
}

void headless_record(bool on) {
    device.recording = on;
}

const std::vector<gpu_call>& headless_calls() {
    return device.calls;
}

std::vector<gpu_draw> headless_draws() {
    return device.draws;
}

void headless_forget_calls() {
    device.calls.clear();
    device.draws.clear();
}

i64 headless_live_objects(gpu_op create) {
    return static_cast<i64>(objects_of(create).live.size());
}

u32 texture_create() {
    return object_create(gpu_op::texture_create);
}

void texture_destroy(u32 texture) {
    object_destroy(gpu_op::texture_create, gpu_op::texture_destroy, texture);
    std::replace(device.bound.textures.begin(), device.bound.textures.end(), texture, 0U);
}

void texture_unit(u32 unit) {
    device.bound.unit = std::min(unit, static_cast<u32>(device.bound.textures.size() - 1));
    keep(gpu_op::texture_unit, {unit});
}

void texture_bind(u32 target, u32 texture) {
    device.bound.textures[device.bound.unit] = texture;
    keep(gpu_op::texture_bind, {target, texture});
}

void texture_unbind(u32 target) {
    device.bound.textures[device.bound.unit] = 0;
    keep(gpu_op::texture_unbind, {target});
}

void texture_image_2d(u32 target, u32 level, u32 format, u32 width, u32 height, u32 pixels_format,
                      u32 pixels_type, const void* pixels) {
    keep(gpu_op::texture_image_2d,
         {target, level, format, width, height, pixels_format, pixels_type}, {},
         data_bytes(pixels, i64{4} * width * height));
}

void texture_parameter_wrap(u32 target, u32 axis, u32 wrap) {
    keep(gpu_op::texture_parameter_wrap, {target, axis, wrap});
}

void texture_parameter_filter(u32 target, u32 filter_case, u32 filter) {
    keep(gpu_op::texture_parameter_filter, {target, filter_case, filter});
}

void texture_generate_mipmap(u32 target) {
    keep(gpu_op::texture_generate_mipmap, {target});
}

u32 buffer_create() {
    return object_create(gpu_op::buffer_create);
}

void buffer_destroy(u32 buffer) {
    object_destroy(gpu_op::buffer_create, gpu_op::buffer_destroy, buffer);
}

void buffer_bind(u32 target, u32 buffer) {
    keep(gpu_op::buffer_bind, {target, buffer});
}

void buffer_data(u32 target, i64 size, const void* data, u32 usage) {
    keep(gpu_op::buffer_data, {target, size, usage}, {}, data_bytes(data, size));
}

u32 vertex_array_create() {
    return object_create(gpu_op::vertex_array_create);
}

void vertex_array_destroy(u32 array) {
    object_destroy(gpu_op::vertex_array_create, gpu_op::vertex_array_destroy, array);
}

void vertex_array_bind(u32 array) {
    keep(gpu_op::vertex_array_bind, {array});
}

void vertex_array_unbind() {
    keep(gpu_op::vertex_array_unbind, {});
}

void attribute_enable(u32 index, bool enable) {
    keep(gpu_op::attribute_enable, {index, enable});
}

void attribute_format(u32 index, u32 components, u32 type, bool normalized, u32 stride,
                      u32 offset) {
    keep(gpu_op::attribute_format, {index, components, type, normalized, stride, offset});
}

u32 shader_create() {
    device.programs.emplace_back();
    return object_create(gpu_op::shader_create);
}

void shader_destroy(u32 program) {
    object_destroy(gpu_op::shader_create, gpu_op::shader_destroy, program);
}

shader_result shader_source(u32 program, str source, char* message, i64 message_size) {
    bool ok = device.shader_sources++ != device.failing_source;
    keep(gpu_op::shader_source, {program}, {}, source, ok);
    if (!ok) {
        return source_refused(message, message_size);
    }
    if (program < device.programs.size()) {
        device.programs[program].uniforms = uniforms_of(source);
        device.programs[program].values.assign(device.programs[program].uniforms.size(), {});
    }
    return {true, {}};
}

i32 shader_get_uniform_location(u32 program, str name) {
    i64 location = -1;
    if (program < device.programs.size()) {
        location = uniform_place(device.programs[program], {name.begin(), name.end()});
    }
    keep(gpu_op::shader_get_uniform_location, {program}, {}, name, location);
    return static_cast<i32>(location);
}

void shader_bind(u32 program) {
    device.bound.program = program < device.programs.size() ? program : 0;
    keep(gpu_op::shader_bind, {program});
}

void shader_uniform1i(i32 location, i32 value) {
    f32 real = static_cast<f32>(value);
    uniform_set(location, {&real, 1});
    keep(gpu_op::shader_uniform1i, {location, value});
}

void shader_uniform1f(i32 location, f32 value) {
    uniform_set(location, {&value, 1});
    keep(gpu_op::shader_uniform1f, {location}, {&value, 1});
}

void shader_uniform4f(i32 location, const f32* values) {
    uniform_set(location, {values, 4});
    keep(gpu_op::shader_uniform4f, {location}, {values, 4});
}

void shader_uniform_matrix4fa(i32 location, u32 count, bool transpose, const f32* values) {
    uniform_set(location, {values, 16});
    keep(gpu_op::shader_uniform_matrix4fa, {location, count, transpose},
         {values, std::size_t{16} * count});
}

u32 frame_buffer_create() {
    return object_create(gpu_op::frame_buffer_create);
}

void frame_buffer_destroy(u32 frame_buffer) {
    object_destroy(gpu_op::frame_buffer_create, gpu_op::frame_buffer_destroy, frame_buffer);
    if (device.bound.frame_buffer == frame_buffer) {
        device.bound.frame_buffer = 0;
    }
}

void frame_buffer_bind(u32 target, u32 frame_buffer) {
    device.bound.frame_buffer = frame_buffer;
    keep(gpu_op::frame_buffer_bind, {target, frame_buffer});
}

void frame_buffer_unbind(u32 target) {
    device.bound.frame_buffer = 0;
    keep(gpu_op::frame_buffer_unbind, {target});
}

void frame_buffer_texture(u32 target, u32 attachment, u32 index, u32 texture, u32 level) {
    keep(gpu_op::frame_buffer_texture, {target, attachment, index, texture, level});
}

u32 frame_buffer_get_status(u32 target) {
    keep(gpu_op::frame_buffer_get_status, {target}, {}, {}, device.frame_buffer_status);
    return device.frame_buffer_status;
}

void pipeline_draw_buffers(const u32* indices, u32 count) {
    keep(gpu_op::pipeline_draw_buffers, {count}, {}, data_bytes(indices, i64{4} * count));
}

void pipeline_cull_enable(bool enable) {
    keep(gpu_op::pipeline_cull_enable, {enable});
}

void pipeline_cull_orientation(u32 orientation) {
    keep(gpu_op::pipeline_cull_orientation, {orientation});
}

void pipeline_blend_enable(bool enable) {
    keep(gpu_op::pipeline_blend_enable, {enable});
}

void pipeline_blend_factor(u32 source, u32 destination) {
    keep(gpu_op::pipeline_blend_factor, {source, destination});
}

void pipeline_viewport(i32 x, i32 y, i32 width, i32 height) {
    keep(gpu_op::pipeline_viewport, {x, y, width, height});
}

void pipeline_clear_color(f32 red, f32 green, f32 blue, f32 alpha) {
    keep(gpu_op::pipeline_clear_color, {}, std::array{red, green, blue, alpha});
}

void pipeline_clear(u32 mask) {
    keep(gpu_op::pipeline_clear, {mask});
}

bool pipeline_is_same() {
    return device.same;
}

u32 pipeline_get_error() {
    u64 fingerprint = std::exchange(device.fingerprint, 0);
    device.same =
        fingerprint != 0 && fingerprint == std::exchange(device.fingerprint_before, fingerprint);
    u32 error = std::exchange(device.error, 0);
    keep(gpu_op::pipeline_get_error, {}, {}, {}, error);
    return error;
}

void pipeline_present() {
    keep(gpu_op::pipeline_present, {});
}

void draw_elements(u32 kind, u32 index_type, u32 first, u32 count, u32 base_vertex, u32 instances) {
    keep(gpu_op::draw_elements, {kind, index_type, first, count, base_vertex, instances});
    if (device.recording) {
        device.draws.push_back(draw_with_state());
    }
}
