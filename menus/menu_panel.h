#pragma once

// What the three menus share: a dark panel in the middle of the window, and titles over it.
// Everything is placed relative to the window's centre, in window pixels; nothing is scaled.

#include "base/types.h"

struct menu_centre {
    f64 x;
    f64 y;
};

// The centre of the window.
menu_centre menu_centre_find();

// The panel, 800 pixels wide, with half its height above and below the centre.
void menu_panel_draw(menu_centre centre, f64 half_height);

// The menus' large `stepper_draw`.
i64 menu_stepper(f64 x, f64 y, f64 reach);
