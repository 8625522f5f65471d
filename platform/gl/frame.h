#pragma once

// The frame that the game draws, kept call by call until it is complete.
//
// A complete frame is drawn only when it shows something else than the frame drawn last, or when a
// picture is asked for. So a board that nobody touches costs no drawing, while the game goes on
// with every frame as ever.

#include <initializer_list>
#include <span>

#include "base/types.h"

// For the back end, which presents what is drawn.

// A picture is due also when it shows nothing new: the window was uncovered, resized, moved to
// another display.
void frame_ask();
// While held, frames are not drawn: nobody can see them, or there is no time for it. A picture that
// is asked for meanwhile is drawn afterwards.
void frame_hold(bool hold);
// Whether the frame completed last was drawn.
bool frame_is_drawn();

// For platform/gpu.h.

enum class frame_call : u32 {
    texture_unit,
    texture_bind,
    vertex_array_bind,
    shader_bind,
    uniform_1i,
    uniform_1f,
    uniform_4f,
    uniform_matrix,
    uniform_matrix_transposed,
    frame_buffer_bind,
    blend_enable,
    viewport,
    clear_color,
    clear,
    draw_elements,
};

// Keeps a call with its arguments as words.
void frame_keep(frame_call call, std::initializer_list<u32> words);
// The same for reals; a uniform's location comes before them.
void frame_keep_reals(frame_call call, std::initializer_list<u32> words,
                      std::span<const f32> reals);
// Makes the calls kept so far, before one that cannot be kept: it makes, changes or asks for an
// object. The frame is then drawn.
void frame_flush();
// The frame is complete.
void frame_finish();
// Makes a kept call.
void frame_call_run(frame_call call, std::span<const u32> words);
