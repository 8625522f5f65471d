#pragma once

// The OpenGL of this build, for the sources of this folder only: OpenGL 3.3 core on desktops,
// OpenGL ES 3.0 in browsers. Both are called alike; where they differ, the difference stands here:
//
//   shader_version   what every section of a shader begins with
//   target_storage   of a texture to draw into; it holds linear light, whose dark tones would show
//                    bands in 8 bits
//   target_type      of the components of such a texture

#ifdef __EMSCRIPTEN__

#include <GLES3/gl3.h>

inline constexpr char shader_version[] = "#version 300 es\nprecision highp float;\n";
inline constexpr GLenum target_storage = GL_RGBA16F;
inline constexpr GLenum target_type = GL_HALF_FLOAT;

// Statuses that OpenGL ES does not know and never answers.
inline constexpr GLenum GL_FRAMEBUFFER_INCOMPLETE_DRAW_BUFFER = 0x8CDB;
inline constexpr GLenum GL_FRAMEBUFFER_INCOMPLETE_READ_BUFFER = 0x8CDC;
inline constexpr GLenum GL_FRAMEBUFFER_INCOMPLETE_LAYER_TARGETS = 0x8DA8;

#else

#include <epoxy/gl.h>

inline constexpr char shader_version[] = "#version 330 core\n";
inline constexpr GLenum target_storage = GL_RGBA16;
inline constexpr GLenum target_type = GL_UNSIGNED_SHORT;

#endif
