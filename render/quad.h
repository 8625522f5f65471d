#pragma once

// The steps of drawing the unit quad with the simple shader. What a step sets stays set until it
// is set again, so a routine that draws several quads repeats only what differs.

#include "base/colour.h"
#include "base/types.h"
#include "render/matrix.h"
#include "render/pictures.h"
#include "render/view.h"

// Places the unit quad on the box.
mat4 quad_model(const box& place);

void quad_unit();                // selects texture unit 0
void quad_texture(u32 texture);  // binds the texture to it
void quad_picture(texture_slot picture);
void quad_sampler();  // the shader reads unit 0
void quad_tint(const colour& tint);
void quad_part(f64 u, f64 v, f64 width, f64 height);   // the part of the picture that is shown
void quad_place(const mat4& model, draw_space space);  // under the frame's matrix of the space
void quad_draw();
