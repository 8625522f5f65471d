// A picture of any bytes is decoded. The sums of its chunks, and lengths beyond its end, are mended
// first: a made-up picture would get no further than the first of them.

#include <zlib.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "fuzz/fuzz.h"
#include "platform/png/png.h"

namespace {

constexpr std::size_t signature_size = 8;
constexpr i64 pixel_limit = 64 * 64;

u8 pixels[4 * pixel_limit];

u32 number_at(const std::string& bytes, std::size_t place) {
    u32 number = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        number = number << 8 | static_cast<u8>(bytes[place + i]);
    }
    return number;
}

void number_put(std::string& bytes, std::size_t place, u32 number) {
    for (std::size_t i = 0; i < 4; ++i) {
        bytes[place + i] = static_cast<char>(number >> (24 - 8 * i));
    }
}

// A chunk is its length, a name of four bytes, so many bytes, and the sum of name and bytes.
void sums_mend(std::string& bytes) {
    for (std::size_t place = signature_size; place + 12 <= bytes.size();) {
        const std::size_t length =
            std::min<std::size_t>(number_at(bytes, place), bytes.size() - place - 12);
        const auto* name = reinterpret_cast<const Bytef*>(bytes.data()) + place + 4;
        number_put(bytes, place, static_cast<u32>(length));
        number_put(bytes, place + 8 + length,
                   static_cast<u32>(crc32(0, name, static_cast<uInt>(length + 4))));
        place += 12 + length;
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const u8* data, std::size_t size) {
    std::string bytes(reinterpret_cast<const char*>(data), size);
    sums_mend(bytes);
    std::FILE* file = fmemopen(bytes.data(), std::max<std::size_t>(bytes.size(), 1), "rb");
    u32 width = 0;
    u32 height = 0;
    const bool bottom_first = size % 2 != 0;
    if (png_decode(file, {sizeof pixels, pixels, bottom_first}, width, height)) {
        fuzz_expect(i64{width} * height <= pixel_limit, "a picture fits into its memory");
    }
    std::fclose(file);
    return 0;
}
