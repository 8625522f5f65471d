#pragma once

// The two shader programs; the sections begin after the lines "#vertex" and "#fragment".

#include "base/str.h"

// Draws a part of a picture, made linear and multiplied by a colour.
inline constexpr str simple_shader_text =
    "#vertex\n"
    "#version 330 core\n"
    "uniform mat4 mvp;\n"
    "uniform vec4 uv_rect;\n"
    "\n"
    "layout(location = 0) in vec2 a_position;\n"
    "layout(location = 1) in vec2 a_uv;\n"
    "out vec2 uv;\n"
    "void main() {\n"
    "  gl_Position = mvp * vec4(a_position, 0.0, 1.0);\n"
    "  uv = a_uv * uv_rect.zw + uv_rect.xy;\n"
    "}\n"
    "#fragment\n"
    "#version 330 core\n"
    "uniform float gamma;\n"
    "uniform vec4 color;\n"
    "uniform sampler2D diffuse;\n"
    "in vec2 uv;\n"
    "out vec4 fragment_color;\n"
    "void main() {\n"
    "  vec4 diffuse_color = texture(diffuse, uv); "
    "fragment_color = color * vec4(pow(diffuse_color.rgb, vec3(gamma)), diffuse_color.a);\n"
    "}\n";

// Copies the linear picture of the frame to the window's gamma.
inline constexpr str gamma_shader_text =
    "#vertex\n"
    "#version 330 core\n"
    "uniform mat4 mvp;\n"
    "layout(location = 0) in vec2 a_position;\n"
    "layout(location = 1) in vec2 a_uv;\n"
    "out vec2 uv;\n"
    "void main() {\n"
    "  gl_Position = mvp * vec4(a_position, 0.0, 1.0);\n"
    "  uv = a_uv;\n"
    "}\n"
    "#fragment\n"
    "#version 330 core\n"
    "uniform float gamma;\n"
    "uniform sampler2D diffuse;\n"
    "in vec2 uv;\n"
    "out vec4 fragment_color;\n"
    "void main() {\n"
    "  vec4 linear_color = texture(diffuse, uv);\n"
    "  fragment_color = vec4(pow(linear_color.rgb, vec3(1.0/gamma)), linear_color.a);\n"
    "}\n";
