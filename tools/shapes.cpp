#include "tools/shapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr i64 disc_corners = 24;

struct range {
    f64 low;
    f64 high;
};

// Where the shape's corners fall along a direction.
range projection(const shape& s, point direction) {
    range r = {INFINITY, -INFINITY};
    for (point p : s) {
        f64 along = p.x * direction.x + p.y * direction.y;
        r = {std::min(r.low, along), std::max(r.high, along)};
    }
    return r;
}

// Whether a line along one of a's sides has the two shapes on different sides.
bool side_separates(const shape& a, const shape& b) {
    for (std::size_t i = 0; i < a.size(); ++i) {
        point from = a[i];
        point to = a[(i + 1) % a.size()];
        point normal = {to.y - from.y, from.x - to.x};
        range ra = projection(a, normal);
        range rb = projection(b, normal);
        if (ra.high <= rb.low || rb.high <= ra.low) {
            return true;
        }
    }
    return false;
}

}  // namespace

shape rectangle_shape(f64 left, f64 bottom, f64 right, f64 top) {
    return {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
}

shape disc_shape(point centre, f64 radius) {
    shape s;
    for (i64 i = 0; i < disc_corners; ++i) {
        f64 angle = 2 * std::numbers::pi * static_cast<f64>(i) / disc_corners;
        s.push_back({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
    }
    return s;
}

shape bounds_of(const std::vector<shape>& shapes) {
    range x = {INFINITY, -INFINITY};
    range y = x;
    for (const shape& s : shapes) {
        range sx = projection(s, {1, 0});
        range sy = projection(s, {0, 1});
        x = {std::min(x.low, sx.low), std::max(x.high, sx.high)};
        y = {std::min(y.low, sy.low), std::max(y.high, sy.high)};
    }
    return rectangle_shape(x.low, y.low, x.high, y.high);
}

bool shapes_overlap(const shape& a, const shape& b) {
    return !side_separates(a, b) && !side_separates(b, a);
}

bool any_overlaps(const shape& s, const std::vector<shape>& others) {
    return std::ranges::any_of(others,
                               [&](const shape& other) { return shapes_overlap(s, other); });
}

bool any_overlaps(const std::vector<shape>& shapes, const std::vector<shape>& others) {
    return std::ranges::any_of(shapes, [&](const shape& s) { return any_overlaps(s, others); });
}

bool rectangle_holds(const shape& outer, const shape& inner) {
    return std::all_of(inner.begin(), inner.end(), [&](point p) {
        return outer[0].x <= p.x && p.x <= outer[2].x && outer[0].y <= p.y && p.y <= outer[2].y;
    });
}

f64 distance(point a, point b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}
