#pragma once

// Texts under construction: bytes in memory with a write cursor.

#include <initializer_list>

#include "base/arena.h"
#include "base/str.h"
#include "base/types.h"

// Grows as needed. A zeroed builder is empty and lives in the persistent arena.
struct text_builder {
    char* data;
    i64 length;           // bytes written: the highest cursor so far
    i64 capacity;         // bytes; 0 while nothing was allocated
    ::arena_id arena_id;  // where `data` lives
    i64 cursor;           // where the next byte goes; below `length` it overwrites
};

// An empty one in the arena.
text_builder text_builder_make(arena_id id);
void text_builder_put(text_builder& builder, char byte);
void text_builder_put_str(text_builder& builder, str text);
// The bytes written so far; valid until the next put.
str text_builder_text(const text_builder& builder);
// The parts one after the other, in the frame arena.
str text_join(std::initializer_list<str> parts);

// Never grows: it fills memory of a fixed size that the caller lends, and drops what is beyond.
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
