#include "platform/image.h"

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/game.h"

namespace {

// The rows of two pictures, compressed as in a PNG file: 2 by 3 pixels of red, green, blue, alpha,
// and one row of 2048 black ones.
// clang-format off
constexpr unsigned char small_rows[] = {
    0x78, 0xda, 0x63, 0xf8, 0xcf, 0xc0, 0xf0, 0x1f, 0x08, 0x1b, 0x18, 0x40,
    0x34, 0x23, 0x13, 0x33, 0x0b, 0x03, 0x27, 0x07, 0xfb, 0x7f, 0x10, 0x00,
    0x00, 0x6e, 0x4f, 0x09, 0x9a,
};
constexpr unsigned char wide_row[] = {
    0x78, 0xda, 0xed, 0xc1, 0x01, 0x0d, 0x00, 0x00, 0x00, 0xc2, 0xa0, 0xf7,
    0x4f, 0x6d, 0x0e, 0x37, 0xa0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
    0x80, 0x7b, 0x03, 0x20, 0x01, 0x00, 0x01,
};
const std::vector<u8> small_pixels[] = {
    {255, 0, 0, 255,    0, 255, 0, 128},
    {0, 0, 255, 0,      1, 2, 3, 4},
    {9, 8, 7, 255,      255, 255, 255, 255},
};
// clang-format on

class image_test : public game_test {
  protected:
    image_test() {
        image_set_flip(false);
        image_set_buffer(static_cast<i64>(memory.size()), memory.data());
    }
    std::vector<u8> memory = std::vector<u8>(24);  // just enough for the small picture
};

std::string number(u32 value) {
    std::string bytes;
    for (int shift : {24, 16, 8, 0}) {
        bytes += static_cast<char>(value >> shift);
    }
    return bytes;
}

// One chunk of a PNG file: length, type, content, and a check over the latter two.
std::string chunk(const std::string& type, const std::string& content) {
    u32 check = ~0U;
    for (char byte : type + content) {
        check ^= static_cast<u8>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            check = (check >> 1) ^ ((check & 1) != 0 ? 0xedb88320U : 0U);
        }
    }
    return number(static_cast<u32>(content.size())) + type + content + number(~check);
}

// A PNG file that claims to hold this many pixels of 4 channels.
template <std::size_t size>
std::string png(u32 width, u32 height, const unsigned char (&compressed_rows)[size]) {
    return "\x89PNG\r\n\x1a\n" +
           chunk("IHDR", number(width) + number(height) + std::string("\x08\x06\0\0\0", 5)) +
           chunk("IDAT", {std::begin(compressed_rows), std::end(compressed_rows)}) +
           chunk("IEND", "");
}

const std::string small_png = png(2, 3, small_rows);
// What follows the rows: their check and the end chunk.
constexpr std::size_t after_rows = 4 + 12;

std::vector<u8> rows(std::initializer_list<int> order) {
    std::vector<u8> pixels;
    for (int row : order) {
        pixels.insert(pixels.end(), small_pixels[row].begin(), small_pixels[row].end());
    }
    return pixels;
}

// The decoded pixels of a file with this content. Whatever it is, a picture must be either decoded
// whole or replaced by one white pixel, which is said once.
std::vector<u8> decode(const std::string& content) {
    file_put("picture.png", content);
    image record = {};
    std::string said = output_of([&] { image_load(record, "picture.png", image_channels_rgba); });
    std::vector<u8> pixels(record.pixels, record.pixels + 4 * record.width * record.height);
    bool replaced = pixels == std::vector<u8>(4, 255);
    EXPECT_EQ(said, replaced ? "failed to load picture: picture.png\n" : "");
    EXPECT_TRUE(replaced || (record.width == 2 && record.height == 3));
    return pixels;
}

}  // namespace

TEST_F(image_test, rows_come_in_the_order_asked_for) {
    EXPECT_EQ(decode(small_png), rows({0, 1, 2}));
    image_set_flip(true);
    EXPECT_EQ(decode(small_png), rows({2, 1, 0}));
}

TEST_F(image_test, a_missing_picture_is_one_white_pixel) {
    image record = {};
    output_of([&] { image_load(record, "none.png", image_channels_rgba); });
    EXPECT_EQ(record.width * record.height, 1U);
    EXPECT_EQ(std::count(record.pixels, record.pixels + 4, 255), 4);
}

TEST_F(image_test, a_truncated_picture_is_never_half_decoded) {
    for (std::size_t length = 0; length < small_png.size() - after_rows; ++length) {
        EXPECT_EQ(decode(small_png.substr(0, length)).size(), 4U) << length;
    }
}

TEST_F(image_test, damaged_bytes_do_no_harm) {
    for (std::size_t at = 0; at < small_png.size(); ++at) {
        for (u32 damage : {0x01U, 0x80U, 0xffU}) {
            std::string bytes = small_png;
            bytes[at] = static_cast<char>(static_cast<u8>(bytes[at]) ^ damage);
            decode(bytes);
        }
    }
    EXPECT_EQ(decode(small_png), rows({0, 1, 2}));
}

TEST_F(image_test, a_size_beyond_the_memory_is_refused) {
    for (auto [width, height] : {std::pair{0U, 3U}, {3U, 3U}, {0xffffffffU, 0xffffffffU}}) {
        EXPECT_EQ(decode(png(width, height, small_rows)).size(), 4U) << width << "x" << height;
    }
    EXPECT_EQ(decode(png(2048, 524'288, wide_row)).size(), 4U) << "0 bytes in 32 bits";
    memory = std::vector<u8>(23);
    image_set_buffer(23, memory.data());
    EXPECT_EQ(decode(small_png).size(), 4U);
    image_set_buffer(0, nullptr);
    EXPECT_EQ(decode(small_png).size(), 4U);
}
