#pragma once

// A slice of bytes without a terminator. The bytes belong to an arena or to static storage.

#include <cassert>
#include <cstddef>
#include <cstring>

#include "base/arena.h"
#include "base/types.h"

struct str {
    const char* data = nullptr;
    i64 length = 0;  // bytes

    constexpr str() = default;
    constexpr str(const char* bytes, i64 count) : data(bytes), length(count) {}
    // From a literal alone: a buffer filled at run time is no literal and does not convert.
    template <std::size_t size>
    consteval str(const char (&literal)[size]) : data(literal), length(i64{size} - 1) {}

    char operator[](i64 i) const {
        assert(0 <= i && i < length);
        return data[i];
    }
    const char* begin() const { return data; }
    const char* end() const { return data + length; }
};

inline bool operator==(str a, str b) {
    return a.length == b.length &&
           (a.length == 0 || std::memcmp(a.data, b.data, static_cast<std::size_t>(a.length)) == 0);
}

// a's bytes, then b's, in a new block of the given arena.
str str_concat(str a, str b, arena_id id);
// A copy in the persistent arena.
str str_copy(str s);
// The end of it that has no such byte.
str str_after_last(str s, char byte);
