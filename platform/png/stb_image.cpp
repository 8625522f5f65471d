#include "platform/png/png.h"

#include <cstring>

#define STBI_ONLY_PNG
#define STBI_NO_LINEAR
#define STB_IMAGE_STATIC
#define STB_IMAGE_IMPLEMENTATION
#include <stb_image.h>

namespace {

constexpr int channels = 4;

bool picture_fits(std::FILE* file, i64 size) {
    int width = 0;
    int height = 0;
    int stored_channels = 0;
    return stbi_info_from_file(file, &width, &height, &stored_channels) != 0 &&
           i64{width} * i64{height} <= size / channels;
}

}  // namespace

bool png_decode(std::FILE* file, const pixel_memory& memory, u32& width, u32& height) {
    if (!picture_fits(file, memory.size)) {
        return false;
    }
    stbi_set_flip_vertically_on_load(memory.bottom_first ? 1 : 0);
    int columns = 0;
    int rows = 0;
    int stored_channels = 0;
    stbi_uc* pixels = stbi_load_from_file(file, &columns, &rows, &stored_channels, channels);
    if (pixels == nullptr) {
        return false;
    }
    width = static_cast<u32>(columns);
    height = static_cast<u32>(rows);
    std::memcpy(memory.data, pixels, std::size_t{width} * height * channels);
    stbi_image_free(pixels);
    return true;
}
