#include "base/message.h"

#include <cstdio>

void message_write(std::initializer_list<str> parts) {
    for (str part : parts) {
        if (part.length > 0) {
            std::fwrite(part.data, 1, static_cast<std::size_t>(part.length), stdout);
        }
    }
    std::fflush(stdout);
}
