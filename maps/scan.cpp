#include "maps/scan.h"

#include <cassert>
#include <cstring>

// Every scanner asks for the end before it looks at a byte and moves only over bytes it looked at,
// so it takes time in proportion to what it reads and never leaves the text.
//
// A real is its digits, without the point, as one whole number of 64 places, divided by the power
// of ten that the point stands for. Both are built up in doubles place by place: the rounding of
// exactly these steps is what gives a number its bits, so the library's conversion will not do.

namespace {

constexpr i64 real_digits = 64;

bool at_end(const text_cursor& cursor) {
    return cursor.position >= cursor.size;
}

char current(const text_cursor& cursor) {
    return cursor.data[cursor.position];
}

bool is_digit(char c) {
    return '0' <= c && c <= '9';
}

bool take_minus(text_cursor& cursor) {
    if (at_end(cursor) || current(cursor) != '-') {
        return false;
    }
    cursor.position += 1;
    return true;
}

}  // namespace

bool text_has_prefix(const text_cursor& cursor, str word) {
    assert(cursor.position >= 0);
    return cursor.position + word.length <= cursor.size &&
           str(cursor.data + cursor.position, word.length) == word;
}

i64 text_scan_int(text_cursor& cursor) {
    bool negative = take_minus(cursor);
    u64 value = 0;
    while (!at_end(cursor) && is_digit(current(cursor))) {
        value = value * 10 + static_cast<u64>(current(cursor) - '0');
        cursor.position += 1;
    }
    return static_cast<i64>(negative ? 0 - value : value);
}

f64 text_scan_real(text_cursor& cursor) {
    bool negative = take_minus(cursor);
    u8 digits[real_digits] = {};
    i64 digit_count = 0;
    i64 integer_digits = -1;  // none: no point was met
    for (; !at_end(cursor); cursor.position += 1) {
        char c = current(cursor);
        if (c == '.') {
            integer_digits = digit_count;
        } else if (!is_digit(c)) {
            break;
        } else if (digit_count < real_digits) {
            digits[digit_count] = static_cast<u8>(c - '0');
            digit_count += 1;
        }
    }
    if (integer_digits < 0) {
        integer_digits = digit_count;
    }
    f64 value = 0;
    for (u8 digit : digits) {
        value = value * 10 + digit;
    }
    assert(0 <= integer_digits && integer_digits <= real_digits);
    f64 place = 1;
    for (i64 i = integer_digits; i < real_digits; ++i) {
        place *= 10;
    }
    value /= place;
    return negative ? -value : value;
}

str text_scan_until(text_cursor& cursor, char stop) {
    if (at_end(cursor)) {
        return {};
    }
    const char* start = cursor.data + cursor.position;
    i64 rest = cursor.size - cursor.position;
    const void* found = std::memchr(start, stop, static_cast<std::size_t>(rest));
    i64 length = found == nullptr ? rest : static_cast<const char*>(found) - start;
    cursor.position += length;
    return {start, length};
}

bool text_next_line(text_cursor& cursor, str& line) {
    if (at_end(cursor)) {
        return false;
    }
    line = text_scan_until(cursor, '\n');
    cursor.position += 1;
    return true;
}
