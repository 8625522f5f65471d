#pragma once

// Numbers as text. Reals are rounded to four decimals digit by digit in doubles, not by the
// library's conversions, whose last digit may differ: 0.99995 becomes 0.9999.

#include "base/text_builder.h"
#include "base/types.h"

// At most four decimals, without trailing zeros or a bare point: 2.5, 7, -0.0001; "infinity",
// "-infinity" and "nan" for the values that are no numbers.
void text_builder_put_real(text_builder& builder, f64 value);
void text_builder_put_int(text_builder& builder, i64 value);
// Up to 20 bytes, at the cursor.
void text_buffer_put_int(text_buffer& buffer, i64 value);
// The number alone, in the frame arena.
str number_text(i64 value);
