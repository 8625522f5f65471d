#pragma once

// The GPU pipeline: textures, buffers, shaders, frame buffers and draw calls.
//
// Handles are 0 for none. The constants are this interface's own numbering; a backend maps them
// to its library's.

#include "base/str.h"
#include "base/types.h"

enum texture_target : u32 { texture_2d = 1 };
enum texture_format : u32 { texture_format_rgba = 13 };
enum pixel_format : u32 { pixel_format_rgba = 8 };
enum component_type : u32 { component_u8 = 0, component_f32 = 6 };
enum texture_axis : u32 { texture_axis_u = 0, texture_axis_v = 1 };
enum texture_wrap : u32 { texture_wrap_clamp = 2 };
enum texture_filter_case : u32 { texture_minification = 3, texture_magnification = 4 };
enum texture_filter : u32 { filter_nearest = 0, filter_linear = 1, filter_trilinear = 5 };
enum buffer_target : u32 { buffer_vertices = 0, buffer_indices = 1 };
enum buffer_usage : u32 { buffer_static = 0 };
enum blend_factor : u32 { blend_source_alpha = 3, blend_one_minus_source_alpha = 9 };
enum cull_orientation : u32 { counter_clockwise_is_front = 1 };
enum clear_mask : u32 { clear_colour = 4 };
enum primitive : u32 { primitive_triangles = 4 };
enum frame_buffer_target : u32 { frame_buffer_draw = 0 };
enum frame_buffer_attachment : u32 { attachment_colour = 3 };

// Answers of `frame_buffer_get_status`.
enum frame_buffer_status : u32 {
    frame_buffer_complete = 0,
    frame_buffer_undefined,
    frame_buffer_incomplete_attachment,
    frame_buffer_missing_attachment,
    frame_buffer_incomplete_draw_buffer,
    frame_buffer_incomplete_read_attachment,
    frame_buffer_incomplete_multisample,
    frame_buffer_incomplete_layers,
    frame_buffer_unsupported,
    frame_buffer_status_count,
};

u32 texture_create();
void texture_destroy(u32 texture);
void texture_unit(u32 unit);
void texture_bind(u32 target, u32 texture);
void texture_unbind(u32 target);
// Gives the bound texture its size and pixels. Without pixels (null) it is one to draw into.
void texture_image_2d(u32 target, u32 level, u32 format, u32 width, u32 height, u32 pixels_format,
                      u32 pixels_type, const void* pixels);
void texture_parameter_wrap(u32 target, u32 axis, u32 wrap);
void texture_parameter_filter(u32 target, u32 filter_case, u32 filter);
// Makes the smaller versions of the bound texture from the pixels that it was given last, which
// must still be there.
void texture_generate_mipmap(u32 target);

u32 buffer_create();
void buffer_destroy(u32 buffer);
void buffer_bind(u32 target, u32 buffer);
void buffer_data(u32 target, i64 size, const void* data, u32 usage);

u32 vertex_array_create();
void vertex_array_destroy(u32 array);
void vertex_array_bind(u32 array);
void vertex_array_unbind();
void attribute_enable(u32 index, bool enable);
// `stride` and `offset` are bytes.
void attribute_format(u32 index, u32 components, u32 type, bool normalized, u32 stride, u32 offset);

struct shader_result {
    bool ok;
    str message;  // the compiler's words, in the caller's message buffer
};

u32 shader_create();
void shader_destroy(u32 program);
// Compiles and links one text that holds a vertex section after a line "#vertex" and a fragment
// section after a line "#fragment". `message` is memory for the compiler's words.
shader_result shader_source(u32 program, str source, char* message, i64 message_size);
// -1 when the program has no such uniform; setting location -1 does nothing.
i32 shader_get_uniform_location(u32 program, str name);
void shader_bind(u32 program);
void shader_uniform1i(i32 location, i32 value);
void shader_uniform1f(i32 location, f32 value);
void shader_uniform4f(i32 location, const f32* values);
// `count` column-major 4 by 4 matrices.
void shader_uniform_matrix4fa(i32 location, u32 count, bool transpose, const f32* values);

u32 frame_buffer_create();
void frame_buffer_destroy(u32 frame_buffer);
void frame_buffer_bind(u32 target, u32 frame_buffer);
void frame_buffer_unbind(u32 target);
void frame_buffer_texture(u32 target, u32 attachment, u32 index, u32 texture, u32 level);
u32 frame_buffer_get_status(u32 target);

void pipeline_draw_buffers(const u32* indices, u32 count);
void pipeline_cull_enable(bool enable);
void pipeline_cull_orientation(u32 orientation);
void pipeline_blend_enable(bool enable);
void pipeline_blend_factor(u32 source, u32 destination);
void pipeline_viewport(i32 x, i32 y, i32 width, i32 height);
void pipeline_clear_color(f32 red, f32 green, f32 blue, f32 alpha);
void pipeline_clear(u32 mask);
// Whether the frame finished last shows what the one before it showed.
bool pipeline_is_same();
// 0 when no error happened since the last call.
u32 pipeline_get_error();
// Shows the finished frame, at most 60 times a second.
void pipeline_present();

// Draws `count` indices of the bound vertex array from index `first` on. The vertices lie in the
// unit square, and the program's matrix takes them to clip space: what then lies outside of it may
// be left out.
void draw_elements(u32 kind, u32 index_type, u32 first, u32 count, u32 base_vertex, u32 instances);
