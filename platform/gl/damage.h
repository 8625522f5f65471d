#pragma once

// What of a picture has to be drawn anew: arithmetic only.
//
// A pixel shows the draws that cover it, in their order. Where the frame before had the same draws
// in the same order, it shows what it showed; all others lie in the damage.

#include <span>

#include "base/types.h"
#include "platform/common/view.h"

// A part of clip space, which reaches from -1 to 1 on both axes.
struct clip_box {
    f32 left, bottom, right, top;
    bool operator==(const clip_box&) const = default;
};

inline constexpr clip_box clip_all = {-1, -1, 1, 1};
inline constexpr clip_box clip_nothing = {1, 1, -1, -1};

// A draw, as far as frames are compared.
struct drawn {
    u64 print;        // of all that it is made with
    clip_box bounds;  // what it covers at most
};

// What the unit square covers at most under a column-major 4 by 4 matrix: all where that is not to
// be told, since its numbers are none, or so large that a GPU's rounding would be seen.
clip_box damage_bounds(const f32* matrix);

// A box with every draw that came, went or changed its place among the others.
clip_box damage_find(std::span<const drawn> before, std::span<const drawn> after);

// The pixels of a picture that a GPU may change within the damage; `whole` is where the picture
// stands.
view_box damage_pixels(const clip_box& damage, const view_box& whole);
// Whether a draw may cover one of these pixels.
bool damage_meets(const clip_box& damage, const clip_box& bounds, view_size whole);
