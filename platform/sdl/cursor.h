#pragma once

#include "base/types.h"

// Whether the mouse pointer is a crossed circle instead of the system's arrow. The system's own
// sign for this is a skull on some.
void cursor_refuse(bool refuses);
