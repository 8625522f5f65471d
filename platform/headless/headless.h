#pragma once

// The controls of the headless platform: no window and no GPU, real files, scripted input, a
// chosen clock, and every GPU call kept in order. For tests, benchmarks and tools.
//
// Scripted input takes effect at the next `input_poll` and, as real input does, one press a poll.

#include <array>
#include <string>
#include <vector>

#include "base/types.h"

enum class gpu_op : u8 {
    texture_create,
    texture_destroy,
    texture_unit,
    texture_bind,
    texture_unbind,
    texture_image_2d,
    texture_parameter_wrap,
    texture_parameter_filter,
    texture_generate_mipmap,
    buffer_create,
    buffer_destroy,
    buffer_bind,
    buffer_data,
    vertex_array_create,
    vertex_array_destroy,
    vertex_array_bind,
    vertex_array_unbind,
    attribute_enable,
    attribute_format,
    shader_create,
    shader_destroy,
    shader_source,
    shader_get_uniform_location,
    shader_bind,
    shader_uniform1i,
    shader_uniform1f,
    shader_uniform4f,
    shader_uniform_matrix4fa,
    frame_buffer_create,
    frame_buffer_destroy,
    frame_buffer_bind,
    frame_buffer_unbind,
    frame_buffer_texture,
    frame_buffer_get_status,
    pipeline_draw_buffers,
    pipeline_cull_enable,
    pipeline_cull_orientation,
    pipeline_blend_enable,
    pipeline_blend_factor,
    pipeline_viewport,
    pipeline_clear_color,
    pipeline_clear,
    pipeline_get_error,
    pipeline_present,
    draw_elements,
    count,
};

// One GPU call with its arguments, in their order: whole numbers in `numbers`, reals in `reals`
// and the bytes of a name, a text or a block of data in `bytes`; what it answered (a created
// handle, a location, a status, an error, whether a shader compiled) is in `result`, else 0.
struct gpu_call {
    gpu_op op;
    std::vector<i64> numbers;
    std::vector<f32> reals;
    std::string bytes;
    i64 result;
};

// One `draw_elements` with the state it was drawn with. A uniform that was never set is zero.
struct gpu_draw {
    u32 frame_buffer;           // 0: the window
    u32 program;                // 0: none bound
    u32 texture;                // bound to the unit that the uniform `diffuse` names
    std::array<f32, 16> mvp;    // column-major
    std::array<f32, 4> colour;  // of the uniform `color`
    std::array<f32, 4> uv_rect;
    f32 gamma;
};

// Forgets the script, the recording, the handles and their states; starts every test. Afterwards
// the clock stands at 0; the screen is always 1920 by 1080.
void headless_reset();

void headless_set_time(u64 time);                         // what `system_time` answers
void headless_close_window();                             // the player closes the window
void headless_fail_shader(u32 nth, std::string message);  // the nth `shader_source` (from 0) fails
void headless_set_frame_buffer_status(u32 status);        // what `frame_buffer_get_status` answers
void headless_set_gpu_error(u32 error);                   // what `pipeline_get_error` answers

void headless_key_press(u32 key);  // goes down and up again: one edge
void headless_key_hold(u32 key);   // goes down (an edge) and stays down
void headless_key_release(u32 key);
void headless_set_caps_lock(bool on);
void headless_mouse_move(f64 x, f64 y);  // pixels from the window's top-left corner
void headless_mouse_press(u32 button);   // goes down: one edge; stays down
void headless_mouse_release(u32 button);
void headless_release_all();     // the window loses the focus
void headless_wheel(f64 steps);  // adds to what the next poll finds

// Whether GPU calls are kept (off at first: they are dropped). The state that draws are made with
// is known in either case.
void headless_record(bool on);
const std::vector<gpu_call>& headless_calls();
// The draws among the recorded calls, in order.
std::vector<gpu_draw> headless_draws();
void headless_forget_calls();
// Live GPU objects by their kind's create operation, e.g. gpu_op::texture_create.
i64 headless_live_objects(gpu_op create);
bool headless_window_is_open();
// How often `display_set_fullscreen` was called, and its last argument.
i64 headless_fullscreen_calls();
bool headless_is_fullscreen();
// The argument of the last `display_tell`.
const std::string& headless_told();
// That of the last `display_refuse`.
bool headless_refuses();
