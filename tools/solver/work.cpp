#include "tools/solver/work.h"

#include <chrono>
#include <csignal>
#include <cstdio>

#include "tools/words.h"

namespace {

constexpr i64 positions_a_second = 2'000'000;
constexpr i64 seconds_told = 2;  // from so many on

using moment = std::chrono::steady_clock;

i64 bytes_most = work_limits().bytes;
moment::time_point end = moment::time_point::max();
bool is_told = false;
volatile std::sig_atomic_t is_interrupted = 0;

}  // namespace

void work_begin(const work_limits& limits) {
    bytes_most = limits.bytes;
    end = moment::now() + std::chrono::seconds(limits.seconds);
    is_told = false;
    is_interrupted = 0;
    std::signal(SIGINT, [](int) { is_interrupted = 1; });
}

work_state work_check(i64 bytes) {
    if (bytes > bytes_most) {
        return work_too_large;
    }
    if (is_interrupted != 0) {
        return work_interrupted;
    }
    return moment::now() < end ? work_well : work_out_of_time;
}

i64 work_bytes_most() {
    return bytes_most;
}

void work_tell(i64 positions) {
    const i64 seconds = positions / positions_a_second;
    if (seconds >= seconds_told && !is_told) {
        std::fprintf(stderr, "about %s positions, %lld s\n", number_grouped(positions).c_str(),
                     static_cast<long long>(seconds));
    }
    is_told = true;
}
