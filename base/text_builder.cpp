#include "base/text_builder.h"

#include <algorithm>
#include <cassert>

namespace {

// The byte at the cursor of a builder or buffer, which has room for it.
template <typename text>
void byte_write(text& to, char byte) {
    to.data[to.cursor] = byte;
    to.cursor += 1;
    to.length = std::max(to.length, to.cursor);
}

}  // namespace

text_builder text_builder_make(arena_id id) {
    text_builder builder = {};
    builder.arena_id = id;
    return builder;
}

void text_builder_put(text_builder& builder, char byte) {
    assert(0 <= builder.cursor && builder.cursor <= builder.length);
    assert(builder.length <= builder.capacity);
    if (builder.capacity == 0) {
        builder.capacity = 1;
        builder.data = static_cast<char*>(arena_alloc(builder.arena_id, 1));
    }
    if (builder.cursor >= builder.capacity) {
        builder.data = static_cast<char*>(
            arena_realloc(builder.arena_id, builder.data, builder.capacity, 2 * builder.capacity));
        builder.capacity *= 2;
    }
    byte_write(builder, byte);
}

void text_builder_put_str(text_builder& builder, str text) {
    for (char byte : text) {
        text_builder_put(builder, byte);
    }
}

str text_builder_text(const text_builder& builder) {
    return {builder.data, builder.length};
}

str text_join(std::initializer_list<str> parts) {
    text_builder builder = text_builder_make(arena_frame);
    for (str part : parts) {
        text_builder_put_str(builder, part);
    }
    return text_builder_text(builder);
}

void text_buffer_put(text_buffer& buffer, char byte) {
    assert(0 <= buffer.cursor && buffer.length <= buffer.capacity);
    if (buffer.cursor < buffer.capacity) {
        byte_write(buffer, byte);
    }
}

void text_buffer_put_str(text_buffer& buffer, str text) {
    for (char byte : text) {
        text_buffer_put(buffer, byte);
    }
}

str text_buffer_text(const text_buffer& buffer) {
    return {buffer.data, buffer.length};
}
