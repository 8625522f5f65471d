#pragma once

// The GPU objects that all drawing uses, and the first and last steps of every frame.
//
// A frame is drawn into an off-screen target in linear light with the simple shader, then copied
// to the window by the gamma shader. Everything on screen is the same unit quad, placed by its own
// matrix and multiplied by its own colour.

#include "base/types.h"

// Corners (0, 0) to (1, 1), with the picture's own corners on them.
struct quad_mesh_record {
    u32 vertex_array;
    u32 vertex_buffer;
    u32 index_buffer;
};

struct simple_shader_record {
    u32 program;
    i32 mvp;  // the locations of its uniforms
    i32 diffuse;
    i32 gamma;
    i32 color;
    i32 uv_rect;  // the part of the texture drawn: u, v, width, height
};

struct gamma_shader_record {
    u32 program;
    i32 mvp;
    i32 diffuse;
    i32 gamma;
};

// The size and the flag are set by `fullscreen_toggle`, the handles here.
struct render_target_record {
    i32 width = 1024;  // pixels, of the window too
    i32 height = 832;
    u32 frame_buffer = 0;
    u32 texture = 0;
    bool fullscreen = false;
};

extern quad_mesh_record quad_mesh;
extern simple_shader_record simple_shader;
extern gamma_shader_record gamma_shader;
extern render_target_record render_target;

// Makes every GPU object, once, in the open window; loads the pictures and the font. A failure is
// said on standard output and the program goes on; after a shader's failure the rest is not made.
// What it takes from the persistent arena may be given back when it returns.
void renderer_init();
// Destroys all that `renderer_init` made.
void renderer_release();

// Makes the off-screen target anew at the size now in `render_target`.
void render_target_rebuild();

// All drawing happens between these two.
void render_frame_begin();
void render_frame_end();
