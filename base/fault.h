#pragma once

// Checkers derive again what must hold and name what does not; builds made to be tested
// (QUORREL_CHECK) run them after every step and stop at the first fault.

#include "base/str.h"

// Returns what is broken, in words, empty when nothing is; they may live in the frame arena.
using fault_finder = str (*)();

#ifdef QUORREL_CHECK
inline constexpr bool faults_are_sought = true;
#else
inline constexpr bool faults_are_sought = false;
#endif

// Says what is broken on standard error and aborts.
[[noreturn]] void fault_stop(str fault);

// Only in builds made to be tested: stops when the finder finds something.
inline void fault_assert(fault_finder find) {
    if constexpr (faults_are_sought) {
        str fault = find();
        if (fault.length > 0) {
            fault_stop(fault);
        }
    }
}
