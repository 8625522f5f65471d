#pragma once

// Sixty steps of the game a second, at whatever rate the browser asks for pictures.

#include "base/types.h"

// How many steps are due at a picture, by the browser's clock in milliseconds. After a stop, of a
// tab in the background for example, the game goes on from where it was.
i32 steps_due(f64 now);
