#include "platform/common/mipmap.h"

#include <algorithm>

namespace {

constexpr u32 channels = 4;

u32 alpha_of(const u8* pixel) {
    return pixel[channels - 1];
}

// The mean of four pixels, weighted by their alpha; without a division where the weights are equal.
void mean_put(const u8* a, const u8* b, const u8* c, const u8* d, u8* to) {
    u32 alpha = alpha_of(a) + alpha_of(b) + alpha_of(c) + alpha_of(d);
    bool even =
        alpha_of(a) == alpha_of(b) && alpha_of(a) == alpha_of(c) && alpha_of(a) == alpha_of(d);
    for (u32 i = 0; i < channels - 1; ++i) {
        u32 plain = u32{a[i]} + b[i] + c[i] + d[i];
        u32 weighted =
            a[i] * alpha_of(a) + b[i] * alpha_of(b) + c[i] * alpha_of(c) + d[i] * alpha_of(d);
        to[i] = static_cast<u8>(even ? (plain + 2) / 4 : (weighted + alpha / 2) / alpha);
    }
    to[channels - 1] = static_cast<u8>((alpha + 2) / 4);
}

}  // namespace

mipmap mipmap_half(const u8* pixels, u32 width, u32 height) {
    mipmap half = {std::max(width / 2, 1U), std::max(height / 2, 1U), {}};
    half.pixels.resize(std::size_t{channels} * half.width * half.height);
    u8* to = half.pixels.data();
    for (u32 y = 0; y < half.height; ++y) {
        const u8* upper = pixels + std::size_t{channels} * width * (2 * y);
        const u8* lower = 2 * y + 1 < height ? upper + std::size_t{channels} * width : upper;
        for (u32 x = 0; x < half.width; ++x, to += channels) {
            u32 left = channels * 2 * x;
            u32 right = 2 * x + 1 < width ? left + channels : left;
            mean_put(upper + left, upper + right, lower + left, lower + right, to);
        }
    }
    return half;
}
