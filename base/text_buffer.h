#pragma once

// A text under construction in memory of a fixed size that the caller lends. It never grows; bytes
// beyond the capacity are dropped.

#include "base/str.h"
#include "base/types.h"

struct text_buffer {
    char* data;
    i64 capacity;  // bytes
    i64 length;    // bytes written: the highest cursor so far
    i64 cursor;    // where the next byte goes; below `length` it overwrites
};

void text_buffer_put(text_buffer& buffer, char byte);
void text_buffer_put_str(text_buffer& buffer, str text);
// The bytes written so far, in the lent memory.
str text_buffer_text(const text_buffer& buffer);
