#pragma once

// Decoding of PNG files, by the library that the target has.

#include <cstdio>

#include "base/types.h"

// Where the decoded rows go, and in which order.
struct pixel_memory {
    i64 size;  // bytes
    void* data;
    bool bottom_first;
};

// Decodes an open PNG file into rows of four bytes a pixel, red, green, blue and alpha, without
// padding. False when the file is broken or its picture too large for the memory.
bool png_decode(std::FILE* file, const pixel_memory& memory, u32& width, u32& height);
