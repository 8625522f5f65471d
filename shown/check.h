#pragma once

#include "base/str.h"

// What is broken in this room, empty when nothing is. Indices that outlive their map are not.
str shown_fault();
