#pragma once

// Drawing text, between `render_frame_begin` and `render_frame_end`. Lengths and positions are
// window pixels (screen) or world units. Most texts have size 256.
//
// With icons, some characters are square pictures, an eighth of the size wide: A to F the six card
// colours as dots of their own colour, a to f the six card shapes, T an eye and ~ the similarity
// sign, these in the text's colour. A '%' is not drawn and makes the next character an ordinary
// one.

#include "base/str.h"
#include "base/types.h"
#include "render/colour.h"

// Left-aligned from (x, y), lower-left corner of the first character; with `centred` or `icons`
// the whole text is centred on (x, y). Each "\n" starts a new line below, at x.
void text_draw(str text, f64 x, f64 y, f64 size, const colour& tint, bool screen, bool icons,
               bool centred);

// Ordinary texts of the screen.
inline void text_draw_centred(str text, f64 x, f64 y, f64 size, const colour& tint) {
    text_draw(text, x, y, size, tint, true, false, true);
}
inline void text_draw_left(str text, f64 x, f64 y, f64 size, const colour& tint) {
    text_draw(text, x, y, size, tint, true, false, false);
}

// What is drawn for one character. Lengths are of the text's size times `scale`.
struct glyph_look {
    f64 u;
    f64 v;
    f64 width;
    f64 height;
    f64 advance;
    f64 scale;
    colour tint;
};

// The texture that shows `character` in a text with icons. For an icon's letter it changes `look`,
// the tint only for the colour dots; for any other character it changes nothing.
u32 glyph_icon(char character, glyph_look& look);
