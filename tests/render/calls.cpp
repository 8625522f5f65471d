#include "tests/render/calls.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <vector>

#include "platform/headless/headless.h"

namespace {

// In the order of `gpu_op`.
// clang-format off
constexpr const char* op_names[] = {
    "texture_create", "texture_destroy", "texture_unit", "texture_bind", "texture_unbind",
    "texture_image_2d", "texture_parameter_wrap", "texture_parameter_filter",
    "texture_generate_mipmap", "buffer_create", "buffer_destroy", "buffer_bind", "buffer_data",
    "vertex_array_create", "vertex_array_destroy", "vertex_array_bind", "vertex_array_unbind",
    "attribute_enable", "attribute_format", "shader_create", "shader_destroy", "shader_source",
    "shader_get_uniform_location", "shader_bind", "shader_uniform1i", "shader_uniform1f",
    "shader_uniform4f", "shader_uniform_matrix4fa", "frame_buffer_create",
    "frame_buffer_destroy", "frame_buffer_bind", "frame_buffer_unbind", "frame_buffer_texture",
    "frame_buffer_get_status", "pipeline_draw_buffers", "pipeline_cull_enable",
    "pipeline_cull_orientation", "pipeline_blend_enable", "pipeline_blend_factor",
    "pipeline_viewport", "pipeline_clear_color", "pipeline_clear", "pipeline_get_error",
    "pipeline_present", "draw_elements",
};
// clang-format on
static_assert(std::size(op_names) == static_cast<std::size_t>(gpu_op::count));

std::string call_text(const gpu_call& call) {
    std::ostringstream text;
    text << op_names[static_cast<std::size_t>(call.op)];
    for (i64 number : call.numbers) {
        text << ' ' << number;
    }
    for (std::size_t i = 0; call.reals.size() <= 4 && i < call.reals.size(); ++i) {
        text << ' ' << call.reals[i];
    }
    if (call.op == gpu_op::shader_get_uniform_location) {
        text << ' ' << call.bytes;
    }
    return text.str();
}

std::vector<std::string> calls_split(const std::string& text) {
    std::vector<std::string> calls;
    for (std::size_t start = 0; start < text.size();) {
        std::size_t end = std::min(text.find("; ", start), text.size());
        calls.push_back(text.substr(start, end - start));
        start = end + 2;
    }
    return calls;
}

}  // namespace

testing::AssertionResult last_calls_are(const std::string& expected) {
    std::vector<std::string> wanted = calls_split(expected);
    const std::vector<gpu_call>& calls = headless_calls();
    if (calls.size() < wanted.size()) {
        return testing::AssertionFailure() << "only " << calls.size() << " calls";
    }
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        std::string found = call_text(calls[calls.size() - wanted.size() + i]);
        if (found != wanted[i]) {
            return testing::AssertionFailure()
                   << "call " << i << " is " << found << ", not " << wanted[i];
        }
    }
    return testing::AssertionSuccess();
}
