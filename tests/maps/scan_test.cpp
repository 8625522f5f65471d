#include "maps/scan.h"

#include <memory>
#include <sstream>

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

// A case is a text in quotes: its whole number and its real, each with where the scanner stops.
// Reals are rounded as the scanner's own steps round; the nearest doubles may be other ones.
TEST(scan_test, Numbers) {
    golden_check("maps/scan", [](const std::string& given) {
        exact_text text(std::string_view(given).substr(1, given.size() - 2));
        std::ostringstream scanned;
        scanned << text_scan_int(text.cursor) << " at " << text.cursor.position;
        text.cursor.position = 0;
        scanned << ", " << std::hexfloat << text_scan_real(text.cursor) << " at "
                << text.cursor.position;
        return scanned.str();
    });
}

TEST(scan_test, PrefixesAndRests) {
    exact_text text("map 1");
    EXPECT_TRUE(text_has_prefix(text.cursor, "map "));
    EXPECT_TRUE(text_has_prefix(text.cursor, "map 1"));
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
