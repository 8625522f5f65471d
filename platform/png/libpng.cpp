#include "platform/png/png.h"

#include <png.h>

namespace {

constexpr u64 pixel_bytes = 4;

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
    bool decoded = png_image_begin_read_from_stdio(&picture, file) != 0 &&
                   picture_fits(picture, memory.size) && pixels_decode(picture, memory);
    width = picture.width;
    height = picture.height;
    png_image_free(&picture);
    return decoded;
}
