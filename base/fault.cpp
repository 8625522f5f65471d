#include "base/fault.h"

#include <cstdio>
#include <cstdlib>

void fault_stop(str fault) {
    std::fputs("broken: ", stderr);
    std::fwrite(fault.data, 1, static_cast<std::size_t>(fault.length), stderr);
    std::fputs("\n", stderr);
    std::abort();
}
