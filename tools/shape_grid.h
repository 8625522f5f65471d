#pragma once

// Which of many shapes overlaps another one, without comparing all: a plane of square cells knows
// what lies in each.

#include <functional>
#include <utility>
#include <vector>

#include "tools/shapes.h"

// Shapes that reach further from the origin overlap nothing here.
inline constexpr f64 grid_reach = 131'072;

struct shape_grid {
    std::vector<std::vector<shape>> items;
    f64 left = 0;
    f64 bottom = 0;
    f64 cell_side = 1;
    std::vector<std::pair<i64, i64>> entries;  // cells and the items in them, sorted
};

// A grid of items that consist of shapes each.
shape_grid grid_make(std::vector<std::vector<shape>> items);

// One of the items that overlaps one of the shapes and passes the test, -1 when there is none.
i64 grid_find(const shape_grid& grid, const std::vector<shape>& shapes,
              const std::function<bool(i64 item)>& passes);
