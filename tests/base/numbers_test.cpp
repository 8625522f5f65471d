#include "base/numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tests/support/game.h"

namespace {

using numbers_test = game_test;

constexpr f64 infinity = std::numeric_limits<f64>::infinity();

std::string real_text(f64 value) {
    text_builder text = {};
    text_builder_put_real(text, value);
    return string_of(text_builder_text(text));
}

TEST_F(numbers_test, RealsHaveFourDecimals) {
    const std::pair<f64, std::string> rows[] = {
        // clang-format off
        {2.5, "2.5"}, {7, "7"}, {3.14159, "3.1416"}, {12.0304, "12.0304"}, {100, "100"},
        {0.00004, "0"}, {0.00005, "0.0001"}, {0.99995, "0.9999"}, {0.99996, "1"}, {1.09996, "1.1"},
        {99999.99999, "100000"}, {-1.5, "-1.5"}, {-0.0, "0"}, {-0.00001, "-0"},
        {9007199254740992, "9007199254740992"}, {-1e300, "-" + std::string(64, '9')},
        {infinity, "infinity"}, {-infinity, "-infinity"}, {-std::nan(""), "nan"},
        // clang-format on
    };
    for (const auto& [value, text] : rows) {
        EXPECT_EQ(real_text(value), text);
    }
    for (i64 i = 0; i < 200000; i += 97) {
        std::string text = real_text(static_cast<f64>(i) / 10000);
        EXPECT_EQ(std::lround(std::stod(text) * 10000), i) << text;
    }
    EXPECT_EQ(number_digits(1.5e61).integer_count, 62);
    for (f64 value : {9e47, 8e54, 1e55, 1e58, 9.9999999e58, 5e60, 1e63, 9.99e63, 1e64}) {
        decimal_digits number = number_digits(value);
        EXPECT_LE(number.integer_count, number_digit_count) << value;
        EXPECT_LE(*std::ranges::max_element(number.digits), 9) << value;
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
