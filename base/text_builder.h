#pragma once

// A growable byte buffer with a write cursor. A zeroed builder is empty and lives in the
// persistent arena; set `owner` for another one.

#include "base/arena.h"
#include "base/str.h"
#include "base/types.h"

struct text_builder {
    char* data;
    i64 length;      // bytes written: the highest cursor so far
    i64 capacity;    // bytes; 0 while nothing was allocated
    arena_id owner;  // where `data` lives
    i64 cursor;      // where the next byte goes; below `length` it overwrites
};

void text_builder_put(text_builder& builder, char byte);
void text_builder_put_str(text_builder& builder, str text);
// The bytes written so far; valid until the next put.
str text_builder_text(const text_builder& builder);
