#pragma once

// How much of a picture a draw can cover, told from its matrix before anything is drawn.

#include "base/types.h"

// The share of clip space, from 0 to 1, that the unit square covers at most under a column-major
// 4 by 4 matrix. 0 where nothing of it is inside; 1 where that is not to be told.
f32 unit_square_coverage(const f32* matrix);
