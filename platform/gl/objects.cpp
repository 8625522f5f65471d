// The calls of platform/gpu.h that make, change or ask for objects, and the states that are set
// once. They are made at once.

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstdint>

#include "platform/common/mipmap.h"
#include "platform/gl/constants.h"
#include "platform/gl/frame.h"
#include "platform/gl/opengl.h"
#include "platform/gl/state.h"
#include "platform/gl/targets.h"
#include "platform/gpu.h"

namespace {

// The pixels given to a texture last, from which its smaller versions are made.
struct picture {
    const u8* pixels;
    u32 width, height;
};

picture last_picture;

// Creates or deletes one object: OpenGL's calls take lists.
template <typename gl_call>
u32 object_create(gl_call create) {
    GLuint object = 0;
    create(1, &object);
    return object;
}

template <typename gl_call>
void object_destroy(gl_call destroy, u32 object) {
    frame_flush();
    destroy(1, &object);
}

}  // namespace

u32 texture_create() {
    return object_create(glGenTextures);
}

void texture_destroy(u32 texture) {
    object_destroy(glDeleteTextures, texture);
    state_forget_texture(texture);
    target_forget(texture);
}

void texture_image_2d(u32 target, u32 level, u32 format, u32 width, u32 height, u32 pixels_format,
                      u32 pixels_type, const void* pixels) {
    frame_flush();
    if (pixels == nullptr) {
        target_make(state_bound_texture(), {static_cast<i32>(width), static_cast<i32>(height)});
        return;
    }
    // Told how many smaller versions may follow, a driver has memory for all of them at once; else
    // it would take some for this one and then again for all.
    glTexParameteri(gl_of(texture_targets, target), GL_TEXTURE_MAX_LEVEL,
                    static_cast<GLint>(std::bit_width(std::max(width, height))) - 1);
    glTexImage2D(gl_of(texture_targets, target), static_cast<GLint>(level),
                 static_cast<GLint>(gl_of(texture_formats, format)), static_cast<GLsizei>(width),
                 static_cast<GLsizei>(height), 0, gl_of(pixel_formats, pixels_format),
                 gl_of(component_types, pixels_type), pixels);
    last_picture = {static_cast<const u8*>(pixels), width, height};
}

void texture_parameter_wrap(u32 target, u32 axis, u32 wrap) {
    frame_flush();
    glTexParameteri(gl_of(texture_targets, target), gl_of(texture_axes, axis),
                    static_cast<GLint>(gl_of(texture_wraps, wrap)));
}

void texture_parameter_filter(u32 target, u32 filter_case, u32 filter) {
    frame_flush();
    glTexParameteri(gl_of(texture_targets, target), gl_of(filter_cases, filter_case),
                    static_cast<GLint>(gl_of(texture_filters, filter)));
}

// A software renderer would first compile code of its own for each kind of picture.
void texture_generate_mipmap(u32 target) {
    mipmap smaller = {last_picture.width, last_picture.height, {}};
    const u8* pixels = last_picture.pixels;
    for (u32 level = 1; smaller.width > 1 || smaller.height > 1; ++level) {
        smaller = mipmap_half(pixels, smaller.width, smaller.height);
        pixels = smaller.pixels.data();
        glTexImage2D(gl_of(texture_targets, target), static_cast<GLint>(level), GL_RGBA8,
                     static_cast<GLsizei>(smaller.width), static_cast<GLsizei>(smaller.height), 0,
                     GL_RGBA, GL_UNSIGNED_BYTE, pixels);
    }
}

u32 buffer_create() {
    return object_create(glGenBuffers);
}

void buffer_destroy(u32 buffer) {
    object_destroy(glDeleteBuffers, buffer);
}

void buffer_bind(u32 target, u32 buffer) {
    frame_flush();
    glBindBuffer(gl_of(buffer_targets, target), buffer);
}

void buffer_data(u32 target, i64 size, const void* data, u32 usage) {
    frame_flush();
    glBufferData(gl_of(buffer_targets, target), static_cast<GLsizeiptr>(size), data,
                 gl_of(buffer_usages, usage));
}

u32 vertex_array_create() {
    return object_create(glGenVertexArrays);
}

void vertex_array_destroy(u32 array) {
    object_destroy(glDeleteVertexArrays, array);
    state_forget_vertex_array(array);
}

void attribute_enable(u32 index, bool enable) {
    frame_flush();
    (enable ? glEnableVertexAttribArray : glDisableVertexAttribArray)(index);
}

void attribute_format(u32 index, u32 components, u32 type, bool normalized, u32 stride,
                      u32 offset) {
    frame_flush();
    glVertexAttribPointer(index, static_cast<GLint>(components), gl_of(component_types, type),
                          normalized ? GL_TRUE : GL_FALSE, static_cast<GLsizei>(stride),
                          gl_offset(offset));
}

u32 frame_buffer_create() {
    return object_create(glGenFramebuffers);
}

void frame_buffer_destroy(u32 frame_buffer) {
    object_destroy(glDeleteFramebuffers, frame_buffer);
    state_forget_frame_buffer(frame_buffer);
}

void frame_buffer_texture(u32 target, u32 attachment, u32 index, u32 texture, u32 level) {
    frame_flush();
    glFramebufferTexture2D(gl_of(frame_buffer_targets, target),
                           gl_of(attachments, attachment) + index, GL_TEXTURE_2D, texture,
                           static_cast<GLint>(level));
    target_attach(texture, state_bound_frame_buffer());
}

u32 frame_buffer_get_status(u32 target) {
    frame_flush();
    GLenum status = glCheckFramebufferStatus(gl_of(frame_buffer_targets, target));
    return ours_of(frame_buffer_statuses, status, frame_buffer_status_count);
}

void pipeline_draw_buffers(const u32* indices, u32 count) {
    constexpr u32 most = 4;  // what every OpenGL ES 3.0 has
    assert(count <= most);
    frame_flush();
    GLenum buffers[most];
    for (u32 i = 0; i < count; ++i) {
        buffers[i] = GL_COLOR_ATTACHMENT0 + indices[i];
    }
    glDrawBuffers(static_cast<GLsizei>(count), buffers);
}

void pipeline_cull_enable(bool enable) {
    frame_flush();
    (enable ? glEnable : glDisable)(GL_CULL_FACE);
}

void pipeline_cull_orientation(u32 orientation) {
    frame_flush();
    glFrontFace(gl_of(orientations, orientation));
}

void pipeline_blend_factor(u32 source, u32 destination) {
    frame_flush();
    // The alpha of what is drawn onto stays whole: a window with alpha would show the desktop.
    glBlendFuncSeparate(gl_of(blend_factors, source), gl_of(blend_factors, destination), GL_ONE,
                        gl_of(blend_factors, destination));
}
