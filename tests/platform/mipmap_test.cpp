#include "platform/common/mipmap.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

TEST(mipmap, pixels_count_by_their_alpha) {
    const u8 edge[] = {200, 100, 0, 255, 0, 0, 0, 0, 100, 50, 20, 255, 0, 0, 0, 0};
    mipmap half = mipmap_half(edge, 2, 2);
    EXPECT_THAT(half.pixels, ElementsAre(150, 75, 10, 128));
    const u8 clear[] = {80, 40, 8, 0, 40, 40, 0, 0};
    EXPECT_THAT(mipmap_half(clear, 2, 1).pixels, ElementsAre(60, 40, 4, 0));
}

TEST(mipmap, sizes_are_halved_down_to_one_pixel) {
    const u8 row[] = {9, 9, 9, 255, 1, 1, 1, 255, 5, 5, 5, 255};
    mipmap half = mipmap_half(row, 3, 1);
    EXPECT_EQ(half.width, 1U);
    EXPECT_EQ(half.height, 1U);
    EXPECT_THAT(half.pixels, ElementsAre(5, 5, 5, 255));
    EXPECT_THAT(mipmap_half(row, 1, 3).pixels, ElementsAre(5, 5, 5, 255));
    EXPECT_THAT(mipmap_half(row, 1, 1).pixels, ElementsAre(9, 9, 9, 255));
}

}  // namespace
