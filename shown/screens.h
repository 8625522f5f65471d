#pragma once

// Which screen and which overlays are shown, and whether the main loop goes on. Kept low so that a
// reader of a flag does not pull in the screens themselves.

#include "base/types.h"

// The title menu comes before the player set-up, that before the map list; with none of the three
// the board shows, as the editor when `editor_open` is set, else as the game.
struct screen_flags {
    bool title_menu_open = true;
    bool player_setup_open = false;
    bool map_list_open = false;
    bool editor_open = false;
    bool text_entry_open = false;  // the editor's modal text entry dialog
    bool replay_open = false;      // the game is shown again; none of the others is open then
};

extern screen_flags screens;

// Whether no menu covers the board.
bool board_is_shown();
// Whether the board is shown to be played on.
bool game_is_shown();
// Whether it is shown to edit its map.
bool editor_is_shown();
// Whether one of the menus before a game is shown.
bool game_menu_is_shown();

struct app_record {
    bool running = false;  // the loop goes on
    bool help_visible = false;
    bool keys_visible = false;  // the page of keys, which takes the help page's place
    i32 show_frames = 0;        // for which its key is held: what can be done is shown
    bool memory_report_visible = false;
    bool refusal_visible = false;  // by the mouse pointer
};

extern app_record app;
