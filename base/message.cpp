#include "base/message.h"

#include <cstdio>
#include <cstdlib>

namespace {

void parts_write(std::FILE* stream, std::initializer_list<str> parts) {
    for (str part : parts) {
        if (part.length > 0) {
            std::fwrite(part.data, 1, static_cast<std::size_t>(part.length), stream);
        }
    }
    std::fflush(stream);
}

}  // namespace

void message_write(std::initializer_list<str> parts) {
    parts_write(stdout, parts);
}

void fault_stop(str fault) {
    parts_write(stderr, {"broken: ", fault, "\n"});
    std::abort();
}
