#pragma once

// How far the solver may go: its memory, its time, and until Ctrl-C is pressed.

#include "base/types.h"

enum work_state : u8 {
    work_well = 0,     // it may go on, or is done
    work_too_large,    // it would take more memory than it may
    work_out_of_time,  // it has taken its time
    work_interrupted,  // Ctrl-C was pressed
};

struct work_limits {
    i64 bytes = i64{1} << 30;
    i64 seconds = 600;
};

// Time begins to count, and from now on Ctrl-C ends the work alone and not the program.
void work_begin(const work_limits& limits);

// Whether a work that has taken or will take so many bytes may go on.
work_state work_check(i64 bytes);
i64 work_bytes_most();

// Loops ask `work_check` once in so many steps.
inline constexpr i64 work_stride = 1 << 14;

// Says on standard error about how long so many positions will take, where that is seconds. Only
// the first word after the work began is said.
void work_tell(i64 positions);
