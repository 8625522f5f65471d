#include "rules/random.h"

#include <bit>

#include "tests/support/game.h"

namespace {

// The published reference outputs of both generators.
TEST(random_test, SeedingIsSplitMix64AndSteppingIsXoshiro256StarStar) {
    random_seed(1234567);
    const random_state expected = {6457827717110365317u, 3203168211198807973u, 9817491932198370423u,
                                   4593380528125082431u};
    EXPECT_EQ(random_generator, expected);
    random_generator = {1, 2, 3, 4};
    for (u64 value : {u64{11520}, u64{0}, u64{1509978240}, u64{1215971899390074240},
                      u64{1216172134540287360}, u64{607988272756665600}, 16172922978634559625u,
                      u64{8476171486693032832}, 10595114339597558777u}) {
        EXPECT_EQ(random_next(), value);
    }
}

TEST(random_test, BoundedValuesRejectTheIncompleteBlock) {
    constexpr u64 last = ~u64{0};
    constexpr u64 half = u64{1} << 63;
    struct {
        u64 bound, drawn, value;
        bool rejected;
    } const rows[] = {
        {1, last, 0, false},     {100, 250, 50, false},         {3, last, 0, true},
        {3, last - 1, 2, false}, {half, last, half - 1, false}, {10, last - 6, 9, false},
        {10, last - 5, 0, true}, {half + 1, half + 1, 0, true}, {half + 1, half, half, false},
    };
    for (const auto& row : rows) {
        // The word s1 that makes `drawn` the next output: its two odd factors have inverses.
        u64 s1 = std::rotr(row.drawn * 0x8e38e38e38e38e39, 7) * 0xcccccccccccccccd;
        random_generator = {1, s1, 3, 4};
        random_state before = random_generator;
        u64 value = random_below(row.bound);
        EXPECT_EQ(draws_since(before) > 1, row.rejected) << row.bound << ' ' << row.drawn;
        EXPECT_TRUE(row.rejected ? value < row.bound : value == row.value) << row.drawn;
    }
}

}  // namespace
