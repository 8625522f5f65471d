#include "platform/image.h"

#include <png.h>

#include <cstdio>

#include "base/message.h"
#include "platform/common/regular_file.h"

namespace {

constexpr u8 white_pixel[image_channels_rgba] = {255, 255, 255, 255};

bool flip_rows;
i64 buffer_size;
void* buffer;

bool picture_fits(const png_image& picture) {
    u64 pixels = u64{picture.width} * u64{picture.height};
    return pixels <= static_cast<u64>(buffer_size) / image_channels_rgba;
}

bool pixels_decode(png_image& picture) {
    picture.format = PNG_FORMAT_RGBA;
    png_int_32 row = static_cast<png_int_32>(PNG_IMAGE_ROW_STRIDE(picture));
    // A negative stride stores the rows from the bottom one to the top one.
    return png_image_finish_read(&picture, nullptr, buffer, flip_rows ? -row : row, nullptr) != 0;
}

bool picture_decode(image& record, str path) {
    i64 file_bytes = 0;
    std::FILE* file = regular_file_open(path, file_bytes);
    if (file == nullptr) {
        return false;
    }
    png_image picture = {};
    picture.version = PNG_IMAGE_VERSION;
    bool decoded = png_image_begin_read_from_stdio(&picture, file) != 0 && picture_fits(picture) &&
                   pixels_decode(picture);
    record = {static_cast<const u8*>(buffer), picture.width, picture.height};
    png_image_free(&picture);
    std::fclose(file);
    return decoded;
}

}  // namespace

void image_set_flip(bool flip) {
    flip_rows = flip;
}

void image_set_buffer(i64 size, void* memory) {
    buffer_size = size;
    buffer = memory;
}

void image_load(image& record, str path, u32 channels) {
    if (channels != image_channels_rgba || !picture_decode(record, path)) {
        message_write({"failed to load picture: ", path, "\n"});
        record = {white_pixel, 1, 1};
    }
}
