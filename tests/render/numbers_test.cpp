#include "render/numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tests/support/game.h"

namespace {

class numbers_test : public game_test {};

constexpr f64 infinity = std::numeric_limits<f64>::infinity();
constexpr i64 int_min = std::numeric_limits<i64>::min();

std::string real_text(f64 value) {
    text_builder text = {};
    text_builder_put_real(text, value);
    return string_of(text_builder_text(text));
}

std::string int_text(i64 value) {
    text_builder text = {};
    text_builder_put_int(text, value);
    return string_of(text_builder_text(text));
}

TEST_F(numbers_test, reals) {
    const struct {
        f64 value;
        const char* text;
        // clang-format off
    } rows[] = {
        {2.5, "2.5"}, {7, "7"}, {3.14159, "3.1416"}, {0.00004, "0"}, {0.00005, "0.0001"},
        {0.1, "0.1"}, {0.3, "0.3"}, {0.7, "0.7"}, {100, "100"}, {1234.5678, "1234.5678"},
        {12.0304, "12.0304"}, {9.99996, "10"}, {99999.99999, "100000"}, {0.99996, "1"},
        {0.99995, "0.9999"}, {1.09996, "1.1"}, {-1.5, "-1.5"}, {-0.0, "0"}, {-0.00001, "-0"},
        {9007199254740992, "9007199254740992"}, {infinity, "infinity"},
        {-infinity, "-infinity"}, {std::nan(""), "nan"}, {-std::nan(""), "nan"},
    };
    // clang-format on
    for (const auto& row : rows) {
        EXPECT_EQ(real_text(row.value), row.text);
    }
}

// Every number of four decimals is written back as it was meant.
TEST_F(numbers_test, four_decimals_are_kept) {
    for (i64 i = 0; i < 200000; i += 7) {
        std::string text = real_text(static_cast<f64>(i) / 10000);
        EXPECT_EQ(std::lround(std::stod(text) * 10000), i) << text;
        EXPECT_LE(text.size(), 7U) << text;
    }
}

TEST_F(numbers_test, digits_stay_in_their_record_at_every_size) {
    for (f64 value :
         {9e47, 8e54, 1e58, 9.9999999e58, 1e59, 5e60, 1e63, 9.99e63, 1e64, 1e300, infinity}) {
        decimal_digits number = number_digits(value);
        EXPECT_LE(number.integer_count, number_digit_count);
        EXPECT_LE(*std::max_element(number.digits, number.digits + number_digit_count), 9);
    }
    EXPECT_EQ(number_digits(1.5e59).integer_count, 60);
    EXPECT_EQ(real_text(1e64), std::string(64, '9'));
    EXPECT_EQ(real_text(-1e300), "-" + std::string(64, '9'));
}

TEST_F(numbers_test, integers) {
    EXPECT_EQ(int_text(0), "0");
    EXPECT_EQ(int_text(-42), "-42");
    EXPECT_EQ(int_text(1000), "1000");
    EXPECT_EQ(int_text(std::numeric_limits<i64>::max()), "9223372036854775807");
    EXPECT_EQ(int_text(int_min), "-9223372036854775808");
}

TEST_F(numbers_test, a_text_buffer_keeps_its_size) {
    char bytes[22];
    std::fill(std::begin(bytes), std::end(bytes), '#');
    text_buffer buffer = {bytes, 21, 0, 0};
    text_buffer_put_int(buffer, int_min);
    text_buffer_put_int(buffer, 67);
    EXPECT_EQ(string_of(text_buffer_text(buffer)), "-92233720368547758086");
    EXPECT_EQ(bytes[21], '#');
    buffer.cursor = 1;
    text_buffer_put_str(buffer, "00");
    EXPECT_EQ(string_of(text_buffer_text(buffer)), "-00233720368547758086");
    EXPECT_EQ(buffer.cursor, 3);
}

}  // namespace
