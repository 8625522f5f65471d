#include "platform/image.h"

#include <png.h>

#include "tests/support/game.h"

namespace {

// Just enough memory for a picture of 2 by 3 pixels of red, green, blue, alpha.
class image_test : public game_test {
  protected:
    image_test() {
        image_set_flip(false);
        image_set_buffer(24, memory);
    }
    u8 memory[24];
};

const std::vector<u8> small_pixels = {255, 0, 0, 255, 0, 255, 0, 128, 0,   0,   255, 0,
                                      1,   2, 3, 4,   9, 8,   7, 255, 255, 255, 255, 255};

// A PNG file with the pixels.
std::string png(u32 width, u32 height, const std::vector<u8>& pixels) {
    png_image picture = {};
    picture.version = PNG_IMAGE_VERSION;
    picture.width = width;
    picture.height = height;
    picture.format = PNG_FORMAT_RGBA;
    png_alloc_size_t size = 10'000;
    std::string bytes(size, '\0');
    EXPECT_NE(
        png_image_write_to_memory(&picture, bytes.data(), &size, 0, pixels.data(), 0, nullptr), 0);
    return bytes.substr(0, size);
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

TEST_F(image_test, RowsComeInTheOrderAskedFor) {
    const std::string whole = png(2, 3, small_pixels);
    EXPECT_EQ(decode(whole), small_pixels);
    image_set_flip(true);
    std::vector<u8> flipped = decode(whole);
    EXPECT_EQ(std::vector(flipped.begin() + 16, flipped.end()),
              std::vector(small_pixels.begin(), small_pixels.begin() + 8));
    image_set_buffer(23, memory);
    EXPECT_EQ(decode(whole).size(), 4U);
    image_set_buffer(0, nullptr);
    EXPECT_EQ(decode(whole).size(), 4U);
    image_set_buffer(24, memory);
    EXPECT_EQ(decode(png(3, 3, std::vector<u8>(36))).size(), 4U);
}

TEST_F(image_test, CutOrDamagedPicturesAreNeverHalfDecoded) {
    const std::string whole = png(2, 3, small_pixels);
    for (std::size_t length = 0; length < whole.size() - 16; ++length) {
        EXPECT_EQ(decode(whole.substr(0, length)).size(), 4U) << length;
    }
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (u8 damage : {u8{0x01}, u8{0x80}, u8{0xff}}) {
            std::string bytes = whole;
            bytes[at] = static_cast<char>(static_cast<u8>(bytes[at]) ^ damage);
            decode(bytes);
        }
    }
    std::filesystem::remove("picture.png");
    image record = {};
    output_of([&] { image_load(record, "picture.png", image_channels_rgba); });
    EXPECT_EQ(record.width * record.height, 1U);
}

}  // namespace
