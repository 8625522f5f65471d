#pragma once

// Smaller versions of a picture, for drawing it small. A pixel counts by its alpha, so that what is
// transparent leaves no dark edge.

#include <vector>

#include "base/types.h"

struct mipmap {
    u32 width;               // pixels
    u32 height;              // pixels
    std::vector<u8> pixels;  // red, green, blue and alpha of each, rows without padding
};

// The version of half the width and height, at least one pixel each.
mipmap mipmap_half(const u8* pixels, u32 width, u32 height);
