#pragma once

// Scanners over a text in memory. They never step past its size; the end is a normal case.

#include "base/str.h"
#include "base/types.h"

struct text_cursor {
    const char* data;
    i64 size;      // bytes
    i64 position;  // may stand past the size after a skip
};

// Whether `word` stands at the position, which does not move.
bool text_has_prefix(const text_cursor& cursor, str word);
// An optional "-" and decimal digits; stops at the first other byte. No digits: 0. Values beyond
// 64 bits wrap.
i64 text_scan_int(text_cursor& cursor);
// An optional "-" and decimal digits with a "." before, between or after them; of several points
// the last counts. No digits: 0. The first 64 digits are significant, later ones are dropped.
f64 text_scan_real(text_cursor& cursor);
// The bytes from the position up to the first `stop` or the end; the position then stands there.
str text_scan_until(text_cursor& cursor, char stop);
// Takes the next line, without the "\n" or the end that it runs to; false at the text's end.
bool text_next_line(text_cursor& cursor, str& line);
