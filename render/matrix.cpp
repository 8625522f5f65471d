#include "render/matrix.h"

#include "platform/maths.h"

mat4 mat4_translation(f32 x, f32 y) {
    return {{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, 0, 1}};
}

mat4 mat4_scale(f32 sx, f32 sy) {
    return {{sx, 0, 0, 0, 0, sy, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}};
}

mat4 mat4_direction(f32 ux, f32 uy) {
    return {{ux, uy, 0, 0, -uy, ux, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}};
}

mat4 mat4_rotation(f32 angle) {
    return mat4_direction(static_cast<f32>(math_cos(angle)), static_cast<f32>(math_sin(angle)));
}

void mat4_multiply(mat4& out, const mat4& a, const mat4& b) {
    mat4 product;
    for (i64 c = 0; c < 4; ++c) {
        const f32* column = b.at + c * 4;
        for (i64 r = 0; r < 4; ++r) {
            product.at[c * 4 + r] = a.at[r] * column[0] + a.at[4 + r] * column[1] +
                                    a.at[8 + r] * column[2] + a.at[12 + r] * column[3];
        }
    }
    out = product;
}
