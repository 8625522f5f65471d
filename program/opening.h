#pragma once

// What the program begins with when it is asked for more than its title menu: maps that are taken
// in, a game that is opened, a map that is played at once.

#include "base/str.h"
#include "maps/family.h"
#include "program/command_line.h"
#include "rules/seats.h"

struct opening_name {
    char bytes[4096];
    i64 length = 0;
};

// What the start of the game leaves alone.
struct opening {
    i64 family = no_family;  // that of the map, or of the maps taken in
    opening_name game = {};  // path of the game file to open
    opening_name map = {};   // name of the map to play
};

// Enters the directory to play in on that day (program/daily_maps.h) and takes the map files in,
// before the game starts. A file that
// cannot be taken in is told, and no more; without a place to play in, or without the map to play,
// the answer is false, with the reason in one line on standard error.
bool opening_prepare(const command_line& command, i64 day, opening& wanted);
// Shows it once the game has started.
void opening_show(const command_line& command, const opening& wanted);

// Begins a game on the selected map straight away, with these seats; with an empty list those of
// the set-up. False, with the reason told and nothing changed, when the map's file is missing.
bool selected_map_play(const seat_list& seats);
