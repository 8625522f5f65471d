#include "tools/shape_grid.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr i64 cells_across = 128;
constexpr f64 least_cell_side = 16;

// Cells from the first up to, not including, the last ones.
struct cell_range {
    i64 left, bottom, right, top;
};

bool is_within_reach(const shape& s) {
    return std::ranges::all_of(
        s, [](point p) { return std::abs(p.x) <= grid_reach && std::abs(p.y) <= grid_reach; });
}

cell_range cells_around(const shape_grid& grid, const shape& s) {
    const shape box = bounds_of({s});
    auto cell = [&](f64 distance) {
        f64 index = std::floor(distance / grid.cell_side);
        return static_cast<i64>(std::clamp(index, -1.0, f64{cells_across}));
    };
    return {std::max(cell(box[0].x - grid.left), i64{0}),
            std::max(cell(box[0].y - grid.bottom), i64{0}),
            std::min(cell(box[2].x - grid.left) + 1, cells_across),
            std::min(cell(box[2].y - grid.bottom) + 1, cells_across)};
}

shape area_of(const shape_grid& grid, const cell_range& cells) {
    auto place = [&](f64 start, i64 cell) {
        return start + static_cast<f64>(cell) * grid.cell_side;
    };
    return rectangle_shape(place(grid.left, cells.left), place(grid.bottom, cells.bottom),
                           place(grid.left, cells.right), place(grid.bottom, cells.top));
}

using cell_visitor = std::function<bool(i64 cell)>;

// Visits the cells of the range that the shape reaches into, by halving the range, until a visitor
// answers yes; then it does too.
bool cells_visit(const shape_grid& grid, const shape& s, const cell_range& cells,
                 const cell_visitor& visit) {
    const i64 width = cells.right - cells.left;
    const i64 height = cells.top - cells.bottom;
    if (width <= 0 || height <= 0 || !shapes_overlap(s, area_of(grid, cells))) {
        return false;
    }
    if (width == 1 && height == 1) {
        return visit(cells.bottom * cells_across + cells.left);
    }
    cell_range first = cells;
    cell_range second = cells;
    if (width > height) {
        first.right = second.left = cells.left + width / 2;
    } else {
        first.top = second.bottom = cells.bottom + height / 2;
    }
    return cells_visit(grid, s, first, visit) || cells_visit(grid, s, second, visit);
}

bool cells_visit(const shape_grid& grid, const shape& s, const cell_visitor& visit) {
    return !s.empty() && is_within_reach(s) && cells_visit(grid, s, cells_around(grid, s), visit);
}

void grid_place(shape_grid& grid) {
    std::vector<shape> reached;
    for (const std::vector<shape>& item : grid.items) {
        std::ranges::copy_if(item, std::back_inserter(reached), is_within_reach);
    }
    if (!reached.empty()) {
        const shape box = bounds_of(reached);
        grid.left = box[0].x;
        grid.bottom = box[0].y;
        const f64 side = std::max(box[2].x - box[0].x, box[2].y - box[0].y);
        grid.cell_side = std::max(least_cell_side, side / (cells_across - 1));
    }
}

}  // namespace

shape_grid grid_make(std::vector<std::vector<shape>> items) {
    shape_grid grid;
    grid.items = std::move(items);
    grid_place(grid);
    for (std::size_t i = 0; i < grid.items.size(); ++i) {
        for (const shape& part : grid.items[i]) {
            cells_visit(grid, part, [&](i64 cell) {
                grid.entries.emplace_back(cell, static_cast<i64>(i));
                return false;
            });
        }
    }
    std::ranges::sort(grid.entries);
    return grid;
}

i64 grid_find(const shape_grid& grid, const std::vector<shape>& shapes,
              const std::function<bool(i64 item)>& passes) {
    i64 found = -1;
    auto overlaps = [&](const shape& s, i64 item) {
        return passes(item) && any_overlaps(s, grid.items[static_cast<std::size_t>(item)]);
    };
    for (std::size_t i = 0; i < shapes.size() && found < 0; ++i) {
        cells_visit(grid, shapes[i], [&](i64 cell) {
            auto entry = std::ranges::lower_bound(grid.entries, std::pair(cell, i64{0}));
            while (entry != grid.entries.end() && entry->first == cell &&
                   !overlaps(shapes[i], entry->second)) {
                ++entry;
            }
            bool is_found = entry != grid.entries.end() && entry->first == cell;
            found = is_found ? entry->second : -1;
            return is_found;
        });
    }
    return found;
}
