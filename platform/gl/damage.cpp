#include "platform/gl/damage.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr f32 farthest = 64;  // in clip space: what is rounded there is far less than a pixel
constexpr std::size_t gap_most = 64;  // draws, together
constexpr i32 margin = 1;             // pixels

void widen(clip_box& box, std::span<const drawn> draws) {
    for (const drawn& one : draws) {
        box = {std::min(box.left, one.bounds.left), std::min(box.bottom, one.bounds.bottom),
               std::max(box.right, one.bounds.right), std::max(box.top, one.bounds.top)};
    }
}

// How many draws stand in two lists before the next one that both have.
struct gap {
    std::size_t before, after;
};

// The shortest gap; all of both lists where none is short.
gap gap_find(std::span<const drawn> before, std::span<const drawn> after) {
    for (std::size_t length = 0; length <= gap_most; ++length) {
        for (std::size_t i = 0; i <= length; ++i) {
            gap found = {i, length - i};
            if (found.before < before.size() && found.after < after.size() &&
                before[found.before].print == after[found.after].print) {
                return found;
            }
        }
    }
    return {before.size(), after.size()};
}

void common_end_cut(std::span<const drawn>& before, std::span<const drawn>& after) {
    while (!before.empty() && !after.empty() && before.back().print == after.back().print) {
        before = before.first(before.size() - 1);
        after = after.first(after.size() - 1);
    }
}

// A place of clip space as a distance from the picture's edge.
f64 pixels_to(f32 place, i32 length) {
    return (std::clamp(f64{place}, -1.0, 1.0) + 1) / 2 * length;
}

struct pixel_range {
    i32 begin, length;
};

pixel_range range_of(f32 low, f32 high, i32 length) {
    i32 begin = static_cast<i32>(std::floor(pixels_to(low, length))) - margin;
    i32 end = static_cast<i32>(std::ceil(pixels_to(high, length))) + margin;
    begin = std::max(begin, 0);
    return {begin, std::max(std::min(end, length) - begin, 0)};
}

}  // namespace

clip_box damage_bounds(const f32* matrix) {
    const f32* x_edge = &matrix[0];
    const f32* y_edge = &matrix[4];
    const f32* origin = &matrix[12];
    bool is_told = x_edge[3] == 0 && y_edge[3] == 0 && origin[3] == 1;
    f32 low[2];
    f32 high[2];
    for (int axis = 0; axis < 2; ++axis) {
        f32 x = x_edge[axis];
        f32 y = y_edge[axis];
        low[axis] = origin[axis] + std::min(x, 0.0f) + std::min(y, 0.0f);
        high[axis] = origin[axis] + std::max(x, 0.0f) + std::max(y, 0.0f);
        // False for what is no number, too.
        is_told = is_told && std::abs(origin[axis]) + std::abs(x) + std::abs(y) <= farthest;
    }
    return is_told ? clip_box{low[0], low[1], high[0], high[1]} : clip_all;
}

clip_box damage_find(std::span<const drawn> before, std::span<const drawn> after) {
    common_end_cut(before, after);
    clip_box damage = clip_nothing;
    while (!before.empty() || !after.empty()) {
        gap differs = gap_find(before, after);
        widen(damage, before.first(differs.before));
        widen(damage, after.first(differs.after));
        before = before.subspan(std::min(differs.before + 1, before.size()));
        after = after.subspan(std::min(differs.after + 1, after.size()));
    }
    return damage;
}

view_box damage_pixels(const clip_box& damage, const view_box& whole) {
    pixel_range x = range_of(damage.left, damage.right, whole.width);
    pixel_range y = range_of(damage.bottom, damage.top, whole.height);
    return {whole.x + x.begin, whole.y + y.begin, x.length, y.length};
}

bool damage_meets(const clip_box& damage, const clip_box& bounds, view_size whole) {
    constexpr f64 reach = 2 * (margin + 2);  // two pixels by rounding; clip space is 2 long
    f64 x = reach / whole.width;
    f64 y = reach / whole.height;
    return damage.left - x <= bounds.right && bounds.left <= damage.right + x &&
           damage.bottom - y <= bounds.top && bounds.bottom <= damage.top + y;
}
