#include "base/numbers.h"

#include <algorithm>
#include <cassert>
#include <cmath>

namespace {

constexpr i64 decimal_count = 4;

// Enough for the digits of any u64.
constexpr i64 int_digit_count = 20;

constexpr i64 number_digit_count = 64;

struct decimal_digits {
    u8 digits[number_digit_count];  // 0 to 9 each, the most significant first
    i64 integer_count;              // digits before the point, 1 to 64
};

// The place value of the first digit, 10^(integer_count - 1).
f64 first_place(f64 value, i64& integer_count) {
    f64 place = 1;
    integer_count = 1;
    while (integer_count < number_digit_count && value >= 10 * place) {
        place *= 10;
        integer_count += 1;
    }
    return place;
}

// The digits up to the one by which the last decimal is rounded. From 10^22 on powers of ten are
// rounded, and so are the decimals': a rest may fall under 0 or reach ten places, and its digit is
// bounded. The digits shown of smaller values never are.
void digits_take(decimal_digits& number, f64 value, f64 place) {
    i64 count = std::min(number.integer_count + decimal_count + 1, number_digit_count);
    for (i64 i = 0; i < count; ++i) {
        number.digits[i] = static_cast<u8>(std::clamp(value / place, 0.0, 9.0));
        value -= number.digits[i] * place;
        place /= 10;
    }
}

// Adds one to the digit at `last`, carrying leftwards through nines.
void digits_carry(decimal_digits& number, i64 last) {
    i64 i = last;
    while (i >= 0 && number.digits[i] == 9) {
        number.digits[i] = 0;
        i -= 1;
    }
    if (i >= 0) {
        number.digits[i] += 1;
    } else {
        number.digits[0] = 1;
        number.integer_count += 1;
    }
}

// The digits of `value` >= 0, rounded at the fourth decimal; the decimals follow the integer
// digits, those past the 64th digit are 0, and what comes after the fourth means nothing. From
// 10^64 on all 64 digits are 9.
decimal_digits number_digits(f64 value) {
    assert(!(value < 0));
    decimal_digits number = {};
    if (!(value < 1e64)) {
        std::fill(number.digits, number.digits + number_digit_count, u8{9});
        number.integer_count = number_digit_count;
        return number;
    }
    f64 place = first_place(value, number.integer_count);
    digits_take(number, value, place);
    i64 rounded = number.integer_count + decimal_count;
    if (rounded < number_digit_count && number.digits[rounded] >= 5) {
        number.digits[rounded] = 0;
        digits_carry(number, rounded - 1);
    }
    return number;
}

// After the last digit shown: trailing zeros of the decimals are not.
i64 digits_end(const decimal_digits& number) {
    i64 end = std::min(number.integer_count + decimal_count, number_digit_count);
    while (end > number.integer_count && number.digits[end - 1] == 0) {
        end -= 1;
    }
    return end;
}

// The decimal text of an integer, written from the end of `bytes`.
str digits_write(i64 value, char (&bytes)[int_digit_count + 1]) {
    u64 rest = value < 0 ? 0 - static_cast<u64>(value) : static_cast<u64>(value);
    i64 first = sizeof bytes;
    do {
        first -= 1;
        bytes[first] = static_cast<char>('0' + rest % 10);
        rest /= 10;
    } while (rest > 0);
    if (value < 0) {
        first -= 1;
        bytes[first] = '-';
    }
    return {bytes + first, static_cast<i64>(sizeof bytes) - first};
}

}  // namespace

void text_builder_put_real(text_builder& builder, f64 value) {
    if (std::isnan(value)) {
        text_builder_put_str(builder, "nan");
        return;
    }
    if (value < 0) {
        text_builder_put(builder, '-');
        value = -value;
    }
    if (std::isinf(value)) {
        text_builder_put_str(builder, "infinity");
        return;
    }
    decimal_digits number = number_digits(value);
    i64 end = digits_end(number);
    for (i64 i = 0; i < end; ++i) {
        if (i == number.integer_count) {
            text_builder_put(builder, '.');
        }
        text_builder_put(builder, static_cast<char>('0' + number.digits[i]));
    }
}

void text_builder_put_int(text_builder& builder, i64 value) {
    char bytes[int_digit_count + 1];
    text_builder_put_str(builder, digits_write(value, bytes));
}

void text_buffer_put_int(text_buffer& buffer, i64 value) {
    char bytes[int_digit_count + 1];
    text_buffer_put_str(buffer, digits_write(value, bytes));
}

str number_text(i64 value) {
    text_builder text = text_builder_make(arena_frame);
    text_builder_put_int(text, value);
    return text_builder_text(text);
}
