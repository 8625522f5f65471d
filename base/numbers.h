#pragma once

// Numbers as text. Reals are rounded to four decimals digit by digit in doubles, not by the
// library's conversions, whose last digit may differ: 0.99995 becomes 0.9999.

#include "base/text_builder.h"
#include "base/types.h"

inline constexpr i64 number_digit_count = 64;

struct decimal_digits {
    u8 digits[number_digit_count];  // 0 to 9 each, the most significant first
    i64 integer_count;              // digits before the point, 1 to 64
};

// The digits of `value` >= 0, rounded at the fourth decimal; the decimals follow the integer
// digits, those past the 64th digit are 0, and what comes after the fourth means nothing. From
// 10^64 on, and for a NaN, all 64 digits are 9.
decimal_digits number_digits(f64 value);

// At most four decimals, without trailing zeros or a bare point: 2.5, 7, -0.0001; "infinity",
// "-infinity" and "nan" for the values that are no numbers.
void text_builder_put_real(text_builder& builder, f64 value);
void text_builder_put_int(text_builder& builder, i64 value);
// Up to 20 bytes, at the cursor.
void text_buffer_put_int(text_buffer& buffer, i64 value);
// The number alone, in the frame arena.
str number_text(i64 value);
