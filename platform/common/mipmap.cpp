#include "platform/common/mipmap.h"

#include <algorithm>

namespace {

constexpr u32 channels = 4;

// Adds up the four pixels that become one.
struct pixel_sum {
    u32 weighted[channels - 1] = {};
    u32 plain[channels - 1] = {};
    u32 alpha = 0;

    void add(const u8* pixel) {
        for (u32 c = 0; c < channels - 1; ++c) {
            weighted[c] += u32{pixel[c]} * pixel[channels - 1];
            plain[c] += pixel[c];
        }
        alpha += pixel[channels - 1];
    }

    void mean_put(u8* pixel) const {
        for (u32 c = 0; c < channels - 1; ++c) {
            u32 mean = alpha > 0 ? (weighted[c] + alpha / 2) / alpha : (plain[c] + 2) / 4;
            pixel[c] = static_cast<u8>(mean);
        }
        pixel[channels - 1] = static_cast<u8>((alpha + 2) / 4);
    }
};

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
            pixel_sum sum;
            sum.add(upper + left);
            sum.add(upper + right);
            sum.add(lower + left);
            sum.add(lower + right);
            sum.mean_put(to);
        }
    }
    return half;
}
