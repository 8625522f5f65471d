#include "tools/map_code.h"

#include <zlib.h>

#include <algorithm>

#include "maps/code_limits.h"
#include "maps/family.h"
#include "tools/words.h"

namespace {

constexpr std::string_view code_letters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
constexpr std::string_view white_space = " \t\r\n";
constexpr int raw_window = -15;              // the largest, without zlib's own head
constexpr std::size_t most_inflated = 1032;  // bytes that one deflated byte can become

void stream_set(z_stream& stream, std::string_view in, std::string& out) {
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(in.data()));
    stream.avail_in = static_cast<uInt>(in.size());
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = static_cast<uInt>(out.size());
}

std::string deflated(std::string_view bytes) {
    z_stream stream = {};
    deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, raw_window, 9, Z_DEFAULT_STRATEGY);
    std::string out(deflateBound(&stream, static_cast<uLong>(bytes.size())), '\0');
    stream_set(stream, bytes, out);
    deflate(&stream, Z_FINISH);
    out.resize(stream.total_out);
    deflateEnd(&stream);
    return out;
}

bool inflated(std::string_view bytes, std::string& out) {
    out.assign(std::min(code_bytes_limit, most_inflated * bytes.size()), '\0');
    z_stream stream = {};
    inflateInit2(&stream, raw_window);
    stream_set(stream, bytes, out);
    bool whole = inflate(&stream, Z_FINISH) == Z_STREAM_END;
    out.resize(stream.total_out);
    inflateEnd(&stream);
    return whole;
}

// Six bits a letter, the highest first.
std::string base64(std::string_view bytes) {
    std::string letters;
    u32 bits = 0;
    int count = 0;
    for (char byte : bytes) {
        bits = bits << 8 | static_cast<u8>(byte);
        for (count += 8; count >= 6; count -= 6) {
            letters += code_letters[bits >> (count - 6) & 63];
        }
    }
    return count == 0 ? letters : letters + code_letters[bits << (6 - count) & 63];
}

bool base64_read(std::string_view letters, std::string& bytes) {
    u32 bits = 0;
    int count = 0;
    for (char letter : letters) {
        std::size_t value = code_letters.find(letter);
        if (value == std::string_view::npos) {
            return false;
        }
        bits = bits << 6 | static_cast<u32>(value);
        count += 6;
        if (count >= 8) {
            count -= 8;
            bytes += static_cast<char>(bits >> count & 255);
        }
    }
    return true;
}

// The line at the front, which is taken away with its end; false when none ends.
bool line_take(std::string_view& text, std::string_view& line) {
    std::size_t end = text.find('\n');
    if (end == std::string_view::npos) {
        return false;
    }
    line = text.substr(0, end);
    text.remove_prefix(end + 1);
    return true;
}

}  // namespace

std::string map_code(const named_map& map) {
    std::string bytes(view_of(family_names[map.family]));
    bytes += "\n" + map.name + "\n" + map.text;
    std::string code = bytes.size() > code_bytes_limit ? "" : base64(deflated(bytes));
    return code.size() > code_length_limit ? "" : code;
}

bool map_code_read(std::string_view code, named_map& map) {
    std::string deflated_bytes, bytes;
    std::string letters(code.substr(code.rfind('=') + 1));
    std::erase_if(letters, [](char c) { return white_space.find(c) != std::string_view::npos; });
    if (letters.size() > code_length_limit || !base64_read(letters, deflated_bytes) ||
        !inflated(deflated_bytes, bytes)) {
        return false;
    }
    std::string_view rest = bytes, family, name;
    if (!line_take(rest, family) || !line_take(rest, name)) {
        return false;
    }
    map = {family_named(str_from(family)), std::string(name), std::string(rest)};
    return map.family != no_family && text_is_map(str_from(map.text));
}
