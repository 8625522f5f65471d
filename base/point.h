#pragma once

#include "base/types.h"

// A place of a plane: pixels, map units or world units, as who gives it says.
struct point {
    f64 x;
    f64 y;
};
