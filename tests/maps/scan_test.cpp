#include "maps/scan.h"

#include <limits>
#include <memory>

#include "tests/support/game.h"

namespace {

// A cursor over a heap copy of exactly the text's size, so that a step past it is noticed.
struct exact_text {
    explicit exact_text(std::string_view text) : bytes(new char[text.size()]) {
        text.copy(bytes.get(), text.size());
        cursor = {bytes.get(), static_cast<i64>(text.size()), 0};
    }
    std::unique_ptr<char[]> bytes;
    text_cursor cursor;
};

TEST(scan_test, Integers) {
    constexpr i64 lowest = std::numeric_limits<i64>::min();
    // clang-format off
    struct {
        const char* text;
        i64 value, position;
    } const rows[] = {
        {"", 0, 0}, {"7", 7, 1}, {"-12 3", -12, 3}, {"-", 0, 1}, {"--5", 0, 1}, {"+5", 0, 0},
        {"12.5", 12, 2}, {"007x", 7, 3}, {" 1", 0, 0}, {"x", 0, 0}, {"\xff", 0, 0},
        {"-1\r\n", -1, 2}, {"9223372036854775808", lowest, 19},
        {"18446744073709551617", 1, 20}, {"-9223372036854775808", lowest, 20},
    };
    // clang-format on
    for (const auto& row : rows) {
        exact_text text(row.text);
        EXPECT_EQ(text_scan_int(text.cursor), row.value) << row.text;
        EXPECT_EQ(text.cursor.position, row.position) << row.text;
    }
}

TEST(scan_test, Reals) {
    const std::string ones(70, '1');
    // clang-format off
    struct {
        std::string text;
        f64 value;
        i64 position;
    } const rows[] = {
        {"", 0, 0}, {"-", 0, 1}, {".", 0, 1}, {"infinity", 0, 0}, {"nan", 0, 0}, {"word", 0, 0},
        {"1e5", 1, 1}, {"--1", 0, 1}, {"-.", 0, 2}, {"128\n", 128, 3}, {"-0.25", -0.25, 5},
        {".5 1", 0.5, 2},
        // Rounded as the scanner's own steps round; the nearest doubles are other ones.
        {"7.", 0x1.bfffffffffffdp+2, 2}, {"12.25", 0x1.87ffffffffffdp+3, 5},
        {"1..5", 0x1.7fffffffffffcp+0, 4}, {"1.2.3", 0x1.8999999999999p+3, 5},
        {"0.1", 0x1.9999999999999p-4, 3}, {"3.14159", 0x1.921f9f01b866dp+1, 7},
        {"123.456", 0x1.edd2f1a9fbe73p+6, 7}, {"-0.7", -0x1.6666666666664p-1, 4},
        {"1234567.1234", 0x1.2d6871f972471p+20, 12}, {"100.7", 0x1.92ccccccccccep+6, 5},
        // The first 64 digits count.
        {ones, 1.111111111111111e+63, 70}, {"0." + std::string(70, '0') + "1", 0, 73},
        {std::string(64, '9') + ".5", 0x1.84f03e93ff9f6p+212, 66},
    };
    // clang-format on
    for (const auto& row : rows) {
        exact_text text(row.text);
        EXPECT_EQ(text_scan_real(text.cursor), row.value) << row.text;
        EXPECT_EQ(text.cursor.position, row.position) << row.text;
    }
}

TEST(scan_test, PrefixesAndRests) {
    exact_text text("map 1");
    EXPECT_TRUE(text_has_prefix(text.cursor, "map "));
    EXPECT_FALSE(text_has_prefix(text.cursor, "map 12"));
    EXPECT_EQ(text.cursor.position, 0);
    EXPECT_EQ(string_of(text_scan_until(text.cursor, ' ')), "map");
    EXPECT_EQ(string_of(text_scan_until(text.cursor, 'x')), " 1");
    text.cursor.position = 9;  // past the end, after a skip
    EXPECT_FALSE(text_has_prefix(text.cursor, " "));
    EXPECT_EQ(text_scan_until(text.cursor, '\n').length, 0);
    EXPECT_EQ(text_scan_int(text.cursor), 0);
    EXPECT_EQ(text_scan_real(text.cursor), 0);
    EXPECT_EQ(text.cursor.position, 9);
}

}  // namespace
