#pragma once

// The constants of platform/gpu.h as OpenGL's.

#include <cassert>
#include <cstddef>
#include <cstdint>

#include "base/types.h"
#include "platform/gl/opengl.h"
#include "platform/gpu.h"

struct gl_constant {
    u32 ours;
    GLenum gl;
};

// clang-format off
inline constexpr gl_constant texture_targets[] = {{texture_2d, GL_TEXTURE_2D}};
inline constexpr gl_constant texture_formats[] = {{texture_format_rgba, GL_RGBA8}};
inline constexpr gl_constant pixel_formats[] = {{pixel_format_rgba, GL_RGBA}};
inline constexpr gl_constant component_types[] = {{component_u8, GL_UNSIGNED_BYTE},
                                                  {component_f32, GL_FLOAT}};
inline constexpr gl_constant texture_axes[] = {{texture_axis_u, GL_TEXTURE_WRAP_S},
                                               {texture_axis_v, GL_TEXTURE_WRAP_T}};
inline constexpr gl_constant texture_wraps[] = {{texture_wrap_clamp, GL_CLAMP_TO_EDGE}};
inline constexpr gl_constant filter_cases[] = {{texture_minification, GL_TEXTURE_MIN_FILTER},
                                               {texture_magnification, GL_TEXTURE_MAG_FILTER}};
inline constexpr gl_constant texture_filters[] = {{filter_nearest, GL_NEAREST},
                                                  {filter_linear, GL_LINEAR},
                                                  {filter_trilinear, GL_LINEAR_MIPMAP_LINEAR}};
inline constexpr gl_constant buffer_targets[] = {{buffer_vertices, GL_ARRAY_BUFFER},
                                                 {buffer_indices, GL_ELEMENT_ARRAY_BUFFER}};
inline constexpr gl_constant buffer_usages[] = {{buffer_static, GL_STATIC_DRAW}};
inline constexpr gl_constant blend_factors[] = {
    {blend_source_alpha, GL_SRC_ALPHA},
    {blend_one_minus_source_alpha, GL_ONE_MINUS_SRC_ALPHA}};
inline constexpr gl_constant orientations[] = {{counter_clockwise_is_front, GL_CCW}};
inline constexpr gl_constant clear_masks[] = {{clear_colour, GL_COLOR_BUFFER_BIT}};
inline constexpr gl_constant primitives[] = {{primitive_triangles, GL_TRIANGLES}};
inline constexpr gl_constant frame_buffer_targets[] = {{frame_buffer_draw, GL_FRAMEBUFFER}};
inline constexpr gl_constant attachments[] = {{attachment_colour, GL_COLOR_ATTACHMENT0}};
inline constexpr gl_constant frame_buffer_statuses[] = {
    {frame_buffer_complete, GL_FRAMEBUFFER_COMPLETE},
    {frame_buffer_undefined, GL_FRAMEBUFFER_UNDEFINED},
    {frame_buffer_incomplete_attachment, GL_FRAMEBUFFER_INCOMPLETE_ATTACHMENT},
    {frame_buffer_missing_attachment, GL_FRAMEBUFFER_INCOMPLETE_MISSING_ATTACHMENT},
    {frame_buffer_incomplete_draw_buffer, GL_FRAMEBUFFER_INCOMPLETE_DRAW_BUFFER},
    {frame_buffer_incomplete_read_attachment, GL_FRAMEBUFFER_INCOMPLETE_READ_BUFFER},
    {frame_buffer_incomplete_multisample, GL_FRAMEBUFFER_INCOMPLETE_MULTISAMPLE},
    {frame_buffer_incomplete_layers, GL_FRAMEBUFFER_INCOMPLETE_LAYER_TARGETS},
    {frame_buffer_unsupported, GL_FRAMEBUFFER_UNSUPPORTED},
};
// clang-format on

// OpenGL answers an unknown constant with an error, which `pipeline_get_error` reports.
template <std::size_t size>
GLenum gl_of(const gl_constant (&table)[size], u32 ours) {
    for (const gl_constant& entry : table) {
        if (entry.ours == ours) {
            return entry.gl;
        }
    }
    assert(false && "no constant of the interface");
    return GL_INVALID_ENUM;
}

template <std::size_t size>
u32 ours_of(const gl_constant (&table)[size], GLenum gl, u32 otherwise) {
    for (const gl_constant& entry : table) {
        if (entry.gl == gl) {
            return entry.ours;
        }
    }
    return otherwise;
}

// OpenGL takes an offset into a bound buffer as a pointer.
inline const void* gl_offset(u32 bytes) {
    return reinterpret_cast<const void*>(std::uintptr_t{bytes});  // NOLINT(*-no-int-to-ptr)
}
