#pragma once

// The GPU objects that all drawing uses, and the first and last steps of every frame.
//
// A frame is drawn into an off-screen target in linear light with the simple shader, then copied
// to the window by the gamma shader. Everything on screen is the same unit quad, placed by its own
// matrix and multiplied by its own colour.

#include "base/types.h"

// The pictures. The card shapes stand in card order and the families in the order of
// `machine_kind`, so that both are found by adding to the first one.
enum texture_slot : u8 {
    texture_circle = 0,  // card shape a; states and the colour dots too
    texture_triangle,    // arrow heads too
    texture_square,
    texture_pentagon,
    texture_hexagon,
    texture_star,
    texture_white,  // every plain fill
    texture_eye,    // the rule letter T
    texture_stack,
    texture_similarity,  // the rule sign ~
    texture_gradient1,   // the back of the deck
    texture_gradient2,
    texture_gradient3,   // the face of a button
    texture_player,      // stones and seats
    texture_next_turn,   // the end-of-turn button
    texture_self_arrow,  // a transition from a state to itself
    texture_state_machine,
    texture_pushdown_machine,
    texture_turing_machine,
    texture_slot_count,
};

struct image_scratch_record {
    u64 size;    // bytes
    void* data;  // in the persistent arena; used only while `renderer_init` runs
};

struct texture_set_record {
    image_scratch_record image_scratch;
    u32 textures[texture_slot_count];
};

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

// The shell sets the size and the flag, this module the handles.
struct render_target_record {
    i32 width = 1024;  // pixels, of the window too
    i32 height = 832;
    u32 frame_buffer = 0;
    u32 texture = 0;
    bool fullscreen = false;
};

extern texture_set_record texture_set;
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
