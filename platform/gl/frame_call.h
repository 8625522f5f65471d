#pragma once

// The kinds of calls that a frame is made of.

#include "base/types.h"

enum class frame_call : u32 {
    // What a draw is made with. Arguments that stand for what the game selected before come first.
    texture_bind,  // unit, texture
    vertex_array_bind,
    shader_bind,
    uniform_1i,  // program, location, value; the next ones alike
    uniform_1f,
    uniform_4f,
    uniform_matrix,
    uniform_matrix_transposed,
    frame_buffer_bind,
    blend_enable,
    viewport,  // frame buffer, box
    clear_color,
    // What draws.
    clear,
    draw_elements,
    // Waits until all that came before is drawn.
    part_end,
    // Not kept. The part of clip space that the next calls draw in, as the bits of a `clip_box`.
    area,
    // The window shows what was drawn for it.
    show,
};
