#pragma once

// Shows how far a long work is, in one line on a terminal's standard error that goes away again.

#include <string_view>

#include "base/types.h"

// Nothing is shown in the program's first second. May be called often.
void progress_show(std::string_view work, i64 done, i64 whole);
// Takes the line away.
void progress_end();
