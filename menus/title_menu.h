#pragma once

// The title menu: the family of machines, and the ways to play, to the editor and out.

#include "base/types.h"

extern f64 title_picture_angle;  // radians; the picture's slow breathing

void title_menu_frame();
