#pragma once

// The 4 by 4 matrices that place things on the screen. Points are columns multiplied on the right.

#include "base/types.h"

struct mat4 {
    f32 at[16];  // column by column: row r of column c is at[c * 4 + r]
};

mat4 mat4_translation(f32 x, f32 y);
mat4 mat4_scale(f32 sx, f32 sy);
// Turns (1, 0) to the unit vector (ux, uy).
mat4 mat4_direction(f32 ux, f32 uy);
// Turns counter-clockwise by `angle` radians.
mat4 mat4_rotation(f32 angle);

// out = a b; `out` may be `a` or `b`.
void mat4_multiply(mat4& out, const mat4& a, const mat4& b);

inline mat4 operator*(const mat4& a, const mat4& b) {
    mat4 product;
    mat4_multiply(product, a, b);
    return product;
}

// The same from lengths and angles as drawing keeps them, which are narrowed here.
inline mat4 translation(f64 x, f64 y) {
    return mat4_translation(static_cast<f32>(x), static_cast<f32>(y));
}
inline mat4 scaling(f64 sx, f64 sy) {
    return mat4_scale(static_cast<f32>(sx), static_cast<f32>(sy));
}
inline mat4 rotation(f64 angle) {
    return mat4_rotation(static_cast<f32>(angle));
}

inline constexpr f64 radians_per_degree = 0.017453292519943295;
