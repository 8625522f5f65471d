#pragma once

// The OpenGL of this build, for the sources of this folder only: OpenGL 3.3 core on desktops,
// OpenGL ES 3.0 in browsers. Both are called alike; where they differ, the difference stands here:
//
//   shader_version   what every section of a shader begins with
//   target_formats   of a texture to draw into, best first; it holds linear light, whose dark
//                    tones show bands in 8 bits
//   context_is_lost  the error that a browser makes good by itself; none on desktops

#ifdef __EMSCRIPTEN__
#include <GLES3/gl3.h>
#else
#include <epoxy/gl.h>
#endif

struct target_format {
    GLenum storage;
    GLenum type;  // of its components
};

#ifdef __EMSCRIPTEN__

inline constexpr char shader_version[] = "#version 300 es\nprecision highp float;\n";
inline constexpr target_format target_formats[] = {
    {GL_RGBA16F, GL_HALF_FLOAT},
    {GL_RGB10_A2, GL_UNSIGNED_INT_2_10_10_10_REV},
    {GL_RGBA8, GL_UNSIGNED_BYTE},
};

inline constexpr GLenum context_is_lost = 0x9242;

// Statuses that OpenGL ES does not know and never answers.
inline constexpr GLenum GL_FRAMEBUFFER_INCOMPLETE_DRAW_BUFFER = 0x8CDB;
inline constexpr GLenum GL_FRAMEBUFFER_INCOMPLETE_READ_BUFFER = 0x8CDC;
inline constexpr GLenum GL_FRAMEBUFFER_INCOMPLETE_LAYER_TARGETS = 0x8DA8;

#else

inline constexpr char shader_version[] = "#version 330 core\n";
inline constexpr target_format target_formats[] = {{GL_RGBA16, GL_UNSIGNED_SHORT}};
inline constexpr GLenum context_is_lost = GL_NO_ERROR;

#endif
