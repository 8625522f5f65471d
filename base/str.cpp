#include "base/str.h"

#include <cassert>

namespace {

void copy_bytes(char* to, str from) {
    if (from.length > 0) {
        std::memcpy(to, from.data, static_cast<std::size_t>(from.length));
    }
}

}  // namespace

str str_concat(str a, str b, arena_id id) {
    assert(a.length >= 0 && b.length >= 0);
    char* bytes = static_cast<char*>(arena_alloc(id, a.length + b.length));
    copy_bytes(bytes, a);
    copy_bytes(bytes + a.length, b);
    return {bytes, a.length + b.length};
}

str str_copy(str s) {
    return str_concat(s, {}, arena_persistent);
}

str str_after_last(str s, char byte) {
    i64 start = s.length;
    while (start > 0 && s[start - 1] != byte) {
        start -= 1;
    }
    return {s.data + start, s.length - start};
}
