#include "tools/terminal.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// By `ink`: bold, green, red, faint.
constexpr const char* ink_codes[] = {"", "\033[1m", "\033[32m", "\033[31m", "\033[2m"};

bool shows_colours() {
    const char* terminal = std::getenv("TERM");
    return isatty(STDOUT_FILENO) != 0 && std::getenv("NO_COLOR") == nullptr &&
           terminal != nullptr && std::strcmp(terminal, "dumb") != 0;
}

}  // namespace

void put(std::string_view text, ink colour) {
    static const bool coloured = shows_colours();
    bool paints = coloured && colour != ink_plain;
    std::printf("%s%.*s%s", paints ? ink_codes[colour] : "", static_cast<int>(text.size()),
                text.data(), paints ? "\033[0m" : "");
}
