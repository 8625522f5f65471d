#include "render/view.h"

mat4 screen_matrix;
mat4 world_matrix;
mat4 inverse_view_matrix;

world_point view_world_point(f64 pixel_x, f64 pixel_y) {
    const f32* m = inverse_view_matrix.at;
    return {m[0] * pixel_x + m[4] * pixel_y + m[12], m[1] * pixel_x + m[5] * pixel_y + m[13]};
}
