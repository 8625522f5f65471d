#pragma once

// The small "<" and ">" buttons on both sides of a value, and values of any size.

#include "base/types.h"

bool spinner_down(f64 x, f64 y);
bool spinner_up(f64 x, f64 y);

// A white number of the usual size, centred on a window point.
void number_draw(i64 value, f64 x, f64 y);

// Adds a step; the largest and the smallest number are neighbours.
i64 wrapping_add(i64 value, i64 step);

// Steps through 0 to count - 1, round the ends.
u8 cyclic_step(u8 value, i64 step, i64 count);
