#pragma once

// Which screen is shown, and the fixed time step. Kept low so that a reader of a flag does not
// pull in the screens themselves.

#include "shell/memory/types.h"

// The title menu comes before the player set-up, that before the map list; with none of the three
// the board shows, as the editor when `editor_open` is set, else as the game.
struct screen_flags {
    bool title_menu_open = true;
    bool player_setup_open = false;
    bool map_list_open = false;
    bool editor_open = false;
    bool text_entry_open = false;  // the editor's modal text entry dialog
};

extern screen_flags screens;

// Seconds by which every timer, animation and camera speed advances per frame.
inline constexpr f64 frame_dt = 1.0 / 60.0;
