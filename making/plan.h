#pragma once

// A board before it is a map: places and the ways between them, in whole pixels.

#include "base/str.h"
#include "base/types.h"

inline constexpr i64 plan_least_places = 4;
inline constexpr i64 plan_place_limit = 18;
inline constexpr i64 plan_way_limit = 96;
inline constexpr i64 plan_middle_y = 8;  // of the board's free part

struct plan_place {
    i64 column;  // from the left
    i64 x;       // pixels from the board's point (0, 0), a multiple of 8
    i64 y;
    bool accepting;
};

struct plan_way {
    i64 from;
    i64 to;
    i16 bend;  // as that of a transition
    i64 label_dx;
    i64 label_dy;
    str text;
};

// Places are numbered column by column, in each from the top.
struct board_plan {
    i64 outline = 0;
    i64 place_count = 0;
    i64 way_count = 0;
    plan_place places[plan_place_limit] = {};
    plan_way ways[plan_way_limit] = {};
};

void plan_way_add(board_plan& plan, i64 from, i64 to, i16 bend = 0);
