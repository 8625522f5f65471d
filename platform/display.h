#pragma once

// The one window. Sizes are pixels of the game's picture, which the window shows as large as fits.

#include "base/str.h"
#include "base/types.h"

enum display_option : u32 { display_core_profile = 64 };
inline constexpr u32 display_samples_one = 1;  // samples per pixel: no multisampling

// Opens the window, smaller where the desktop has no room for it, and makes its GPU context
// current. Without a display or a GPU of the needed kind it writes one line to standard output and
// ends the program with exit status 1.
void display_open(i32 width, i32 height, str title, u32 options, u32 samples);
// Whether the player has closed the window.
bool display_is_closed();
// Whether nothing of the window can be seen, as while it is minimised.
bool display_is_hidden();
void display_set_fullscreen(bool fullscreen);
// The size of the picture that fills the whole display which the window stands on: of the display's
// proportions, and in its own pixels where it is neither too small nor much larger than needed.
void display_get_info(i32& width, i32& height);
// Whether the player's system asks for as little motion as can be.
bool display_wants_stillness();
// Shows the player one line of UTF-8 outside the picture: in the window's title, on the page. An
// empty one takes the line away; a page leaves it until it has another.
void display_tell(str line);
// Shows what stands there while no such line is shown; an empty one: nothing.
void display_stand(str line);
// Whether the mouse pointer is that of what cannot be done.
void display_refuse(bool refuses);
// Whether all that moves in the next pictures by itself is an ornament. Where such pictures keep
// the processor busy, as those of a renderer in software do, every other one is left out.
void display_set_ornament(bool ornament);
// Waits until something happens that the next poll or picture may show, a signal comes, or so many
// frames' time has passed since the last frame was presented. Returns how many have.
i64 display_wait(i64 frames);
// Takes the window off the screen. Its GPU objects may still be destroyed, until the platform is
// released.
void display_close();
