#pragma once

// Reading recorded draws back: what was drawn where, and which texts. All in window pixels, with
// the origin at the bottom-left corner; `world_point_of` leads on to the board.

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/headless/headless.h"
#include "render/colour.h"
#include "render/pictures.h"
#include "render/renderer.h"
#include "tests/support/game.h"
#include "tests/support/screen.h"

// Starts every test inside a frame of 1024 by 832 pixels with calls recorded, made-up pictures and
// a monospaced font: cells of 13 by 32 pixels at size 256, one for each byte.
class draw_test : public game_test {
  protected:
    draw_test();
};

bool operator==(const colour& a, const colour& b);

struct box {
    f64 x;  // of the lower-left corner
    f64 y;
    f64 width;
    f64 height;
};

struct drawn_picture {
    texture_slot slot;
    box place;  // of a turned picture: from its own lower-left to its own upper-right corner
    colour tint;
    gpu_draw draw;
};

struct drawn_text {
    std::string text;  // with icons as their letters and a '%' where a letter would else be one
    point start;       // the lower-left corner of the first character
    point centre;      // of the first line
    f64 size;          // in window pixels
    colour tint;       // of the first character
};

// Where the unit quad's point (u, v) of a draw lands.
point window_point_of(const gpu_draw& draw, f64 u, f64 v);
// The point of the board that a window point shows under this frame's camera.
point world_point_of(point window);

// The pictures drawn since recording began or the calls were forgotten, those of texts left out.
std::vector<drawn_picture> pictures_drawn();
// Texts with at least one visible character; blanks at their ends leave no trace. Lines after the
// first are read as left-aligned with it.
std::vector<drawn_text> texts_drawn();

// Whether such a picture or text was drawn, to a hundredth of a pixel; else what was.
testing::AssertionResult picture_is_at(texture_slot slot, box place);
testing::AssertionResult text_is_centred_at(std::string_view text, f64 x, f64 y);
testing::AssertionResult text_starts_at(std::string_view text, f64 x, f64 y);
