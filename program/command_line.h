#pragma once

// What the program was asked for when it was started.

#include "base/types.h"
#include "maps/family.h"
#include "rules/seats.h"

struct command_line {
    bool fullscreen = false;
    bool restore_maps = false;
    bool still = false;
    const char* directory = "";  // to play in; empty for the usual one
    i64 family = no_family;      // of all `files`; `no_family` to let each tell
    char** files = nullptr;      // maps to take in, games to open
    i64 file_count = 0;
    const char* map_to_play = "";  // a name on the lists or a file; empty for none
    seat_list seats = {};          // none for those of the set-up
};

inline constexpr int command_play = -1;

// Reads the arguments of `main`, which are put in order. `command_play` when the game is to be
// played; else the program's exit status, once the question is answered (0) or the wrong use is
// named in one line on standard error (2).
int command_line_read(int argument_count, char** arguments, command_line& command);
