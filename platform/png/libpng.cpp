#include "platform/png/png.h"

#include <png.h>

#include <cstring>

namespace {

constexpr u64 pixel_bytes = 4;
constexpr long signature_size = 8;  // bytes before the first chunk

// Whether every chunk in front of the pixels lies within the file. libpng takes as much memory as a
// chunk says that it is long, before it finds that the bytes are not there.
bool chunks_fit(std::FILE* file) {
    std::fseek(file, 0, SEEK_END);
    const long size = std::ftell(file);
    long place = signature_size;
    u8 head[8];  // the chunk's length, not counting 12 bytes around it, and its name
    while (place <= size && std::fseek(file, place, SEEK_SET) == 0 &&
           std::fread(head, 1, sizeof head, file) == sizeof head &&
           std::memcmp(head + 4, "IDAT", 4) != 0) {
        place += 12 + static_cast<long>(png_get_uint_32(head));
    }
    std::rewind(file);
    return place <= size;
}

bool picture_fits(const png_image& picture, i64 size) {
    return u64{picture.width} * u64{picture.height} <= static_cast<u64>(size) / pixel_bytes;
}

bool pixels_decode(png_image& picture, const pixel_memory& memory) {
    picture.format = PNG_FORMAT_RGBA;
    png_int_32 row = static_cast<png_int_32>(PNG_IMAGE_ROW_STRIDE(picture));
    // A negative stride stores the rows from the bottom one to the top one.
    return png_image_finish_read(&picture, nullptr, memory.data, memory.bottom_first ? -row : row,
                                 nullptr) != 0;
}

}  // namespace

bool png_decode(std::FILE* file, const pixel_memory& memory, u32& width, u32& height) {
    png_image picture = {};
    picture.version = PNG_IMAGE_VERSION;
    bool decoded = chunks_fit(file) && png_image_begin_read_from_stdio(&picture, file) != 0 &&
                   picture_fits(picture, memory.size) && pixels_decode(picture, memory);
    width = picture.width;
    height = picture.height;
    png_image_free(&picture);
    return decoded;
}
