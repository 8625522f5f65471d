#include "platform/gpu.h"

#include <cassert>
#include <cstdint>

#include "platform/gl/opengl.h"

namespace {

// A constant of the interface and OpenGL's constant for it.
struct gl_constant {
    u32 ours;
    GLenum gl;
};

// clang-format off
constexpr gl_constant texture_targets[] = {{texture_2d, GL_TEXTURE_2D}};
constexpr gl_constant picture_formats[] = {{texture_format_rgba, GL_RGBA8}};
constexpr gl_constant pixel_formats[] = {{pixel_format_rgba, GL_RGBA}};
constexpr gl_constant component_types[] = {{component_u8, GL_UNSIGNED_BYTE},
                                           {component_f32, GL_FLOAT}};
constexpr gl_constant texture_axes[] = {{texture_axis_u, GL_TEXTURE_WRAP_S},
                                        {texture_axis_v, GL_TEXTURE_WRAP_T}};
constexpr gl_constant texture_wraps[] = {{texture_wrap_clamp, GL_CLAMP_TO_EDGE}};
constexpr gl_constant filter_cases[] = {{texture_minification, GL_TEXTURE_MIN_FILTER},
                                        {texture_magnification, GL_TEXTURE_MAG_FILTER}};
constexpr gl_constant texture_filters[] = {{filter_nearest, GL_NEAREST},
                                           {filter_linear, GL_LINEAR},
                                           {filter_trilinear, GL_LINEAR_MIPMAP_LINEAR}};
constexpr gl_constant buffer_targets[] = {{buffer_vertices, GL_ARRAY_BUFFER},
                                          {buffer_indices, GL_ELEMENT_ARRAY_BUFFER}};
constexpr gl_constant buffer_usages[] = {{buffer_static, GL_STATIC_DRAW}};
constexpr gl_constant blend_factors[] = {{blend_source_alpha, GL_SRC_ALPHA},
                                         {blend_one_minus_source_alpha, GL_ONE_MINUS_SRC_ALPHA}};
constexpr gl_constant orientations[] = {{counter_clockwise_is_front, GL_CCW}};
constexpr gl_constant clear_masks[] = {{clear_colour, GL_COLOR_BUFFER_BIT}};
constexpr gl_constant primitives[] = {{primitive_triangles, GL_TRIANGLES}};
constexpr gl_constant frame_buffer_targets[] = {{frame_buffer_draw, GL_FRAMEBUFFER}};
constexpr gl_constant attachments[] = {{attachment_colour, GL_COLOR_ATTACHMENT0}};
constexpr gl_constant frame_buffer_statuses[] = {
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

GLboolean gl_boolean(bool value) {
    return value ? GL_TRUE : GL_FALSE;
}

void capability_set(GLenum capability, bool enable) {
    if (enable) {
        glEnable(capability);
    } else {
        glDisable(capability);
    }
}

// OpenGL takes an offset into a bound buffer as a pointer.
const void* buffer_offset(u32 bytes) {
    return reinterpret_cast<const void*>(std::uintptr_t{bytes});  // NOLINT(*-no-int-to-ptr)
}

}  // namespace

u32 texture_create() {
    GLuint texture = 0;
    glGenTextures(1, &texture);
    return texture;
}

void texture_destroy(u32 texture) {
    glDeleteTextures(1, &texture);
}

void texture_unit(u32 unit) {
    glActiveTexture(GL_TEXTURE0 + unit);
}

void texture_bind(u32 target, u32 texture) {
    glBindTexture(gl_of(texture_targets, target), texture);
}

void texture_unbind(u32 target) {
    glBindTexture(gl_of(texture_targets, target), 0);
}

void texture_image_2d(u32 target, u32 level, u32 format, u32 width, u32 height, u32 pixels_format,
                      u32 pixels_type, const void* pixels) {
    bool picture = pixels != nullptr;
    glTexImage2D(gl_of(texture_targets, target), static_cast<GLint>(level),
                 static_cast<GLint>(picture ? gl_of(picture_formats, format) : target_storage),
                 static_cast<GLsizei>(width), static_cast<GLsizei>(height), 0,
                 gl_of(pixel_formats, pixels_format),
                 picture ? gl_of(component_types, pixels_type) : target_type, pixels);
}

void texture_parameter_wrap(u32 target, u32 axis, u32 wrap) {
    glTexParameteri(gl_of(texture_targets, target), gl_of(texture_axes, axis),
                    static_cast<GLint>(gl_of(texture_wraps, wrap)));
}

void texture_parameter_filter(u32 target, u32 filter_case, u32 filter) {
    glTexParameteri(gl_of(texture_targets, target), gl_of(filter_cases, filter_case),
                    static_cast<GLint>(gl_of(texture_filters, filter)));
}

void texture_generate_mipmap(u32 target) {
    glGenerateMipmap(gl_of(texture_targets, target));
}

u32 buffer_create() {
    GLuint buffer = 0;
    glGenBuffers(1, &buffer);
    return buffer;
}

void buffer_destroy(u32 buffer) {
    glDeleteBuffers(1, &buffer);
}

void buffer_bind(u32 target, u32 buffer) {
    glBindBuffer(gl_of(buffer_targets, target), buffer);
}

void buffer_data(u32 target, i64 size, const void* data, u32 usage) {
    glBufferData(gl_of(buffer_targets, target), static_cast<GLsizeiptr>(size), data,
                 gl_of(buffer_usages, usage));
}

u32 vertex_array_create() {
    GLuint array = 0;
    glGenVertexArrays(1, &array);
    return array;
}

void vertex_array_destroy(u32 array) {
    glDeleteVertexArrays(1, &array);
}

void vertex_array_bind(u32 array) {
    glBindVertexArray(array);
}

void vertex_array_unbind() {
    glBindVertexArray(0);
}

void attribute_enable(u32 index, bool enable) {
    if (enable) {
        glEnableVertexAttribArray(index);
    } else {
        glDisableVertexAttribArray(index);
    }
}

void attribute_format(u32 index, u32 components, u32 type, bool normalized, u32 stride,
                      u32 offset) {
    glVertexAttribPointer(index, static_cast<GLint>(components), gl_of(component_types, type),
                          gl_boolean(normalized), static_cast<GLsizei>(stride),
                          buffer_offset(offset));
}

u32 frame_buffer_create() {
    GLuint frame_buffer = 0;
    glGenFramebuffers(1, &frame_buffer);
    return frame_buffer;
}

void frame_buffer_destroy(u32 frame_buffer) {
    glDeleteFramebuffers(1, &frame_buffer);
}

void frame_buffer_bind(u32 target, u32 frame_buffer) {
    glBindFramebuffer(gl_of(frame_buffer_targets, target), frame_buffer);
}

void frame_buffer_unbind(u32 target) {
    glBindFramebuffer(gl_of(frame_buffer_targets, target), 0);
}

void frame_buffer_texture(u32 target, u32 attachment, u32 index, u32 texture, u32 level) {
    glFramebufferTexture2D(gl_of(frame_buffer_targets, target),
                           gl_of(attachments, attachment) + index, GL_TEXTURE_2D, texture,
                           static_cast<GLint>(level));
}

u32 frame_buffer_get_status(u32 target) {
    GLenum status = glCheckFramebufferStatus(gl_of(frame_buffer_targets, target));
    return ours_of(frame_buffer_statuses, status, frame_buffer_status_count);
}

void pipeline_draw_buffers(const u32* indices, u32 count) {
    constexpr u32 most = 4;  // what every OpenGL ES 3.0 has
    assert(count <= most);
    GLenum buffers[most];
    for (u32 i = 0; i < count; ++i) {
        buffers[i] = GL_COLOR_ATTACHMENT0 + indices[i];
    }
    glDrawBuffers(static_cast<GLsizei>(count), buffers);
}

void pipeline_cull_enable(bool enable) {
    capability_set(GL_CULL_FACE, enable);
}

void pipeline_cull_orientation(u32 orientation) {
    glFrontFace(gl_of(orientations, orientation));
}

void pipeline_blend_enable(bool enable) {
    capability_set(GL_BLEND, enable);
}

void pipeline_blend_factor(u32 source, u32 destination) {
    // The alpha of what is drawn onto stays whole: a window with alpha would show the desktop.
    glBlendFuncSeparate(gl_of(blend_factors, source), gl_of(blend_factors, destination), GL_ONE,
                        gl_of(blend_factors, destination));
}

void pipeline_viewport(i32 x, i32 y, i32 width, i32 height) {
    glViewport(x, y, width, height);
}

void pipeline_clear_color(f32 red, f32 green, f32 blue, f32 alpha) {
    glClearColor(red, green, blue, alpha);
}

void pipeline_clear(u32 mask) {
    glClear(gl_of(clear_masks, mask));
}

u32 pipeline_get_error() {
    return glGetError();
}

void draw_elements(u32 kind, u32 index_type, u32 first, u32 count, [[maybe_unused]] u32 base_vertex,
                   u32 instances) {
    assert(base_vertex == 0);  // OpenGL ES 3.0 knows no other
    glDrawElementsInstanced(gl_of(primitives, kind), static_cast<GLsizei>(count),
                            gl_of(component_types, index_type), buffer_offset(first),
                            static_cast<GLsizei>(instances));
}
