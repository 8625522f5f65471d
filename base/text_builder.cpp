#include "base/text_builder.h"

void text_builder_put(text_builder& builder, char byte) {
    if (builder.capacity == 0) {
        builder.capacity = 1;
        builder.data = static_cast<char*>(arena_alloc(builder.owner, 1));
    }
    if (builder.cursor >= builder.capacity) {
        builder.data = static_cast<char*>(
            arena_realloc(builder.owner, builder.data, builder.capacity, 2 * builder.capacity));
        builder.capacity *= 2;
    }
    builder.data[builder.cursor] = byte;
    builder.cursor += 1;
    if (builder.cursor > builder.length) {
        builder.length = builder.cursor;
    }
}

void text_builder_put_str(text_builder& builder, str text) {
    for (char byte : text) {
        text_builder_put(builder, byte);
    }
}

str text_builder_text(const text_builder& builder) {
    return {builder.data, builder.length};
}
