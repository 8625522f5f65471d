#pragma once

// The one bitmap font.

#include "base/str.h"
#include "base/types.h"

inline constexpr str font_path = "resources/font_info.txt";

// Lengths are fractions of the font picture; a text of size s draws them s times as large.
struct glyph {
    f64 unread[2];  // kept as the file gives them
    f64 advance;    // from this character to the next
    f64 u;          // the lower-left corner in the picture, v counted from its bottom
    f64 v;
    f64 width;
    f64 height;
};

inline constexpr i64 glyph_count = 256;

// All zero, so that texts draw nothing, until a font was read whole.
struct font_record {
    f64 line_height;            // the largest height of a glyph line
    u32 texture;                // 0: none
    glyph glyphs[glyph_count];  // by byte value
};

extern font_record font;

// Reads the font file and the picture it names. When either is missing or a line is
// malformed, `font` stays as it was; most of these say so in one line on standard output.
void font_load();
