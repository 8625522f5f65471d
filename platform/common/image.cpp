#include "platform/image.h"

#include "base/message.h"
#include "platform/common/regular_file.h"
#include "platform/png/png.h"

namespace {

constexpr u8 white_pixel[image_channels_rgba] = {255, 255, 255, 255};

pixel_memory memory;

bool picture_decode(image& record, str path) {
    i64 file_bytes = 0;
    std::FILE* file = regular_file_open(path, file_bytes);
    if (file == nullptr) {
        return false;
    }
    record.pixels = static_cast<const u8*>(memory.data);
    bool decoded = png_decode(file, memory, record.width, record.height);
    std::fclose(file);
    return decoded;
}

}  // namespace

void image_set_flip(bool flip) {
    memory.bottom_first = flip;
}

void image_set_buffer(i64 size, void* data) {
    memory.size = size;
    memory.data = data;
}

void image_load(image& record, str path, u32 channels) {
    if (channels != image_channels_rgba || !picture_decode(record, path)) {
        message_write({"failed to load picture: ", path, "\n"});
        record = {white_pixel, 1, 1};
    }
}
