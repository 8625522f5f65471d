#include "platform/gl/coverage.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr f32 clip_length = 2;  // clip space reaches from -1 to 1

// What clip space holds of a side of the square's bounding box: it begins at `origin`, and two
// edges lead from there.
f32 length_inside(f32 origin, f32 edge, f32 other_edge) {
    f32 low = origin + std::min(edge, 0.0f) + std::min(other_edge, 0.0f);
    f32 high = origin + std::max(edge, 0.0f) + std::max(other_edge, 0.0f);
    return std::max(std::min(high, 1.0f) - std::max(low, -1.0f), 0.0f);
}

}  // namespace

f32 unit_square_coverage(const f32* matrix) {
    const f32* x_edge = &matrix[0];
    const f32* y_edge = &matrix[4];
    const f32* origin = &matrix[12];
    bool is_affine = x_edge[3] == 0 && y_edge[3] == 0 && origin[3] == 1;
    f32 area = std::abs(x_edge[0] * y_edge[1] - x_edge[1] * y_edge[0]);
    f32 box = length_inside(origin[0], x_edge[0], y_edge[0]) *
              length_inside(origin[1], x_edge[1], y_edge[1]);
    if (!is_affine || !std::isfinite(area) || !std::isfinite(box)) {
        return 1;
    }
    return std::min(area, box) / (clip_length * clip_length);
}
