#include "platform/system.h"

#include <emscripten.h>

#include <chrono>

#include "platform/gpu.h"

void system_init(u32, f64) {}

void system_release() {}

u64 system_time() {
    auto since_epoch = std::chrono::system_clock::now().time_since_epoch();
    return static_cast<u64>(std::chrono::nanoseconds(since_epoch).count());
}

// The browser decides when the next frame comes, and shows this one when control returns to it.
void system_sleep(u32) {}

void pipeline_present() {}
