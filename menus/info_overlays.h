#pragma once

// The overlays that the function keys show over every screen; that of F2 is `menus/keys_page`.

#include "base/str.h"

void help_overlay_draw();
// A page like that of the help, with this text.
void page_draw(str text);
// One line with the use of the persistent arena.
void memory_report_draw();
