#pragma once

// The one window. Sizes are pixels.

#include "base/str.h"
#include "base/types.h"

enum display_option : u32 { display_core_profile = 64 };
inline constexpr u32 display_samples_one = 1;  // samples per pixel: no multisampling

// Opens the window and makes its GPU context current. Without a display or a GPU of the needed
// kind it writes one line to standard output and ends the program with exit status 1.
void display_open(i32 width, i32 height, str title, u32 options, u32 samples);
// Whether the player has closed the window.
bool display_is_closed();
void display_set_fullscreen(bool fullscreen);
// The size of the whole screen that the window stands on.
void display_get_info(i32& width, i32& height);
// Takes the window off the screen. Its GPU objects may still be destroyed, until the platform is
// released.
void display_close();
