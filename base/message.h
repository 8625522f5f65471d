#pragma once

// What the program says: diagnostics as plain lines on standard output, and faults.

#include <initializer_list>

#include "base/str.h"

// Writes the parts one after the other; the caller gives the newline.
void message_write(std::initializer_list<str> parts);

// A checker derives again what must hold and returns in words what does not, empty when all is
// well; the words may live in the frame arena. Builds made to be tested (QUORREL_CHECK) run the
// checkers after every step.
using fault_finder = str (*)();

#ifdef QUORREL_CHECK
inline constexpr bool faults_are_sought = true;
#else
inline constexpr bool faults_are_sought = false;
#endif

// Says what is broken on standard error and aborts.
[[noreturn]] void fault_stop(str fault);

// Stops when the finder finds something; other builds do not ask it.
inline void fault_assert(fault_finder find) {
    if constexpr (faults_are_sought) {
        str fault = find();
        if (fault.length > 0) {
            fault_stop(fault);
        }
    }
}
