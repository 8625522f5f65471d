#pragma once

// Decoding of pictures into memory that the caller lends.

#include "base/str.h"
#include "base/types.h"

struct image {
    const u8* pixels;  // rows without padding, in the lent buffer; valid until the next load
    u32 width;         // pixels
    u32 height;        // pixels
};

inline constexpr u32 image_channels_rgba = 4;

// Whether pictures are turned upside down on load, so that their first row is the bottom one.
void image_set_flip(bool flip);
// The memory that pictures are decoded into; it must outlive the loads.
void image_set_buffer(i64 size, void* memory);
// Decodes the picture at `path` with the given channels per pixel, 8 bits each. A picture that is
// missing, broken or too large for the buffer is replaced by one plain white pixel, which is said
// in one line on standard output.
void image_load(image& record, str path, u32 channels);
