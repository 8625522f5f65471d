#pragma once

#include "base/str.h"

// What is broken in anything that the game remembers, empty when nothing is: the checks of all
// rooms. It holds after every frame.
str program_fault();
