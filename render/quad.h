#pragma once

// The steps of drawing the unit quad with the simple shader. What a step sets stays set until it
// is set again, so a routine that draws several quads repeats only what differs.

#include "base/types.h"
#include "render/colour.h"
#include "render/matrix.h"

// Places rectangles: corner (0, 0) of the unit quad on (x, y), (1, 1) on (x + width, y + height).
mat4 quad_model(f64 x, f64 y, f64 width, f64 height);

void quad_unit();                // selects texture unit 0
void quad_texture(u32 texture);  // binds the picture to it
void quad_sampler();             // the shader reads unit 0
void quad_tint(const colour& tint);
void quad_part(f64 u, f64 v, f64 width, f64 height);  // the part of the picture that is shown
// Under the frame's matrix of window pixels (`screen` true) or of world units.
void quad_place(const mat4& model, bool screen);
void quad_draw();
