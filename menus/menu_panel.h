#pragma once

// What the three menus share: a dark panel in the middle of the window, and titles over it.
// Everything is placed relative to the window's centre, in window pixels; nothing is scaled.

#include "base/str.h"
#include "base/types.h"

struct menu_centre {
    f64 x;
    f64 y;
};

// The centre of the window.
menu_centre menu_centre_find();

// The panel, 800 pixels wide, with half its height above and below the centre.
void menu_panel_draw(menu_centre centre, f64 half_height);

// A white text of the usual size, centred on a point.
void menu_text_draw(str text, f64 x, f64 y);

// The "<" and ">" buttons on both sides of a value at (x, y), each `reach` from it: -1, 0 or +1
// by what was clicked.
i64 menu_stepper(f64 x, f64 y, f64 reach);
