#include "base/text_buffer.h"

#include <algorithm>

void text_buffer_put(text_buffer& buffer, char byte) {
    if (buffer.cursor >= buffer.capacity) {
        return;
    }
    buffer.data[buffer.cursor] = byte;
    buffer.cursor += 1;
    buffer.length = std::max(buffer.length, buffer.cursor);
}

void text_buffer_put_str(text_buffer& buffer, str text) {
    for (char byte : text) {
        text_buffer_put(buffer, byte);
    }
}

str text_buffer_text(const text_buffer& buffer) {
    return {buffer.data, buffer.length};
}
