#include "base/numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tests/support/game.h"

namespace {

using numbers_test = game_test;

std::string real_text(f64 value) {
    text_builder text = {};
    text_builder_put_real(text, value);
    return string_of(text_builder_text(text));
}

// A case is a real: its text.
TEST_F(numbers_test, RealsHaveFourDecimals) {
    golden_check("base/reals",
                 [](const std::string& value) { return real_text(std::stod(value)); });
    for (i64 i = 0; i < 200000; i += 97) {
        std::string text = real_text(static_cast<f64>(i) / 10000);
        EXPECT_EQ(std::lround(std::stod(text) * 10000), i) << text;
    }
    EXPECT_EQ(real_text(1.5e61).size(), 62U);
    for (f64 value : {9e47, 8e54, 1e55, 1e58, 9.9999999e58, 5e60, 1e63, 9.99e63, 1e64}) {
        EXPECT_LE(real_text(value).size(), 64U) << value;
        EXPECT_TRUE(
            std::ranges::all_of(real_text(value), [](char c) { return '0' <= c && c <= '9'; }));
    }
}

TEST_F(numbers_test, IntegersGoAsFarAsTheBuffer) {
    char bytes[] = "##############################";
    text_buffer buffer = {bytes, 29, 0, 0};
    for (i64 value : {i64{0}, i64{-42}, i64{1000}, std::numeric_limits<i64>::min(), i64{67}}) {
        text_buffer_put_int(buffer, value);
    }
    buffer.cursor = 1;
    text_buffer_put_str(buffer, "+");
    EXPECT_EQ(string_of(text_buffer_text(buffer)), "0+421000-92233720368547758086");
    EXPECT_EQ(bytes[29], '#');
}

}  // namespace
