#pragma once

// Elementary functions on doubles; angles in radians.

#include "base/types.h"

f64 math_sin(f64 angle);
f64 math_cos(f64 angle);
f64 math_sqrt(f64 x);
f64 math_floor(f64 x);
