#pragma once

// The platform as a whole: its life, the clock, sleeping.

#include "base/types.h"

// What `system_init` brings up; the game takes all of it.
enum system_part : u32 {
    system_display = 1,
    system_input = 2,
    system_file = 4,
    system_image = 8,
    system_gpu = 16,
    system_clock = 32,
    system_all = 63,
};

inline constexpr f64 key_repeat_off = 0.0;

// Called first. `key_repeat` is the time in seconds after which a held key is pressed again;
// with `key_repeat_off`, the one value the game uses, a held key is pressed once. The back ends
// bring up all parts and repeat no key, whatever they are given.
void system_init(u32 parts, f64 key_repeat);
// Called last; nothing of the platform is used afterwards.
void system_release();

// Nanoseconds since some fixed moment; different at every start of the program.
u64 system_time();
// The frame's pause, which is part of the wait in `pipeline_present`: no back end sleeps for it.
void system_sleep(u32 milliseconds);
