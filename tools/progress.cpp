#include "tools/progress.h"

#include <unistd.h>

#include <chrono>
#include <cstdio>

namespace {

using moment = std::chrono::steady_clock;

constexpr std::chrono::seconds patience(1);
constexpr std::chrono::milliseconds between_looks(100);

moment::time_point next_time = moment::now() + patience;
bool is_shown = false;

}  // namespace

void progress_show(std::string_view work, i64 done, i64 whole) {
    if (moment::now() < next_time || isatty(STDERR_FILENO) == 0) {
        return;
    }
    std::fprintf(stderr, "\r\033[K%.*s: %lld of %lld", static_cast<int>(work.size()), work.data(),
                 static_cast<long long>(done), static_cast<long long>(whole));
    next_time = moment::now() + between_looks;
    is_shown = true;
}

void progress_end() {
    if (is_shown) {
        std::fputs("\r\033[K", stderr);
        is_shown = false;
    }
}
