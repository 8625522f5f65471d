#pragma once

// OpenGL's state as far as frames set it. What is so already is not set again.

#include <array>
#include <span>

#include "base/types.h"
#include "platform/common/view.h"

void state_texture_unit(u32 unit);
void state_texture(u32 texture);  // on the selected unit
u32 state_bound_texture();
void state_vertex_array(u32 array);
void state_program(u32 program);
// A value of the bound program's uniform, as the words that it is made of. Whether it is new.
bool state_uniform_is_new(i32 location, std::span<const u32> words);
void state_frame_buffer(u32 frame_buffer);
u32 state_bound_frame_buffer();
void state_blend(bool enable);
void state_viewport(const view_box& box);
// Where alone draws and clears change pixels; null for everywhere.
void state_scissor(const view_box* box);
// The colour that it was before.
std::array<f32, 4> state_clear_color(const std::array<f32, 4>& colour);

// An object that is destroyed is no longer bound, and its name may come again.
void state_forget_texture(u32 texture);
void state_forget_vertex_array(u32 array);
void state_forget_frame_buffer(u32 frame_buffer);
// A program that is destroyed or linked anew has no uniform set.
void state_forget_program(u32 program);
// The context was made anew, and everything is as OpenGL starts.
void state_forget_all();
