#pragma once

// The title menu: the family of machines, and the ways to play, to the editor and out.

#include "base/types.h"

extern f64 title_picture_angle;  // radians; the picture's slow breathing

void title_menu_frame();

// Builds the title map, a small demonstration that is the current map until another is loaded.
void title_map_build();
