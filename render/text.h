#pragma once

// Drawing text, between `render_frame_begin` and `render_frame_end`.

#include "base/colour.h"
#include "base/str.h"
#include "base/text_builder.h"
#include "base/types.h"
#include "render/view.h"

// Sizes in window pixels or world units; most texts are normal ones.
inline constexpr f64 text_small = 128;
inline constexpr f64 text_normal = 256;
inline constexpr f64 text_large = 512;

// How a text lies about its point (x, y).
//
// In a text with icons some characters are square pictures, an eighth of the size wide: A to F the
// six card colours as dots of their own colour, a to f the six card shapes, T an eye and ~ the
// similarity sign, these in the text's colour. A '%' is not drawn and makes the next character an
// ordinary one.
enum text_layout : u8 {
    text_left = 0,  // the lower-left corner of the first character is on the point
    text_centred,   // the whole text is around the point
    text_icons,     // centred, with icons
};

// Appends a text for one with icons: a '%' stands before each character that would be a picture.
void text_buffer_put_plain(text_buffer& buffer, str text);

// Each "\n" starts a new line below, at x.
void text_draw(str text, f64 x, f64 y, f64 size, const colour& tint, draw_space space,
               text_layout layout);

// Where a text that is centred on the point, with icons or without, lies when it is drawn.
box text_box(str text, f64 x, f64 y, f64 size, text_layout layout);

// Texts of the window.
void text_draw_left(str text, f64 x, f64 y, f64 size, const colour& tint);
void text_draw_icons(str text, f64 x, f64 y);  // of normal size, white

// Labels are texts of the window of normal size, centred.
void label_draw(str text, f64 x, f64 y, const colour& tint = colour_white);
void number_draw(i64 value, f64 x, f64 y);  // white
