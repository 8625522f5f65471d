#pragma once

// The map under work in the editor. Changes that no file holds are not lost by a slip of the hand:
// before they are given up, the map is put into "kept/".
//
// While the map under work is played, its bytes lie aside: what is loaded then is the game's, and
// other maps may be loaded in its place without it being given up.

#include "base/str.h"
#include "base/types.h"

struct map_work_record {
    bool open = false;
    i64 family = 0;            // of the map, whatever family becomes the current one
    str path = {};             // where it was loaded from or saved last; empty for a new map
    u64 fingerprint = 0;       // the fingerprint of what the file there holds
    u64 kept_fingerprint = 0;  // of what was kept last
    str aside = {};  // as `map_bytes_write` made them; empty while the map under work is loaded
};

extern map_work_record map_work;

// The loaded map, one of the current family, comes under work as a new one without a name.
void map_work_begin();
// While a map is under work: what is loaded now is what the file at `path` holds. The path must
// live on.
void map_work_is_saved(str path);
// The loaded map makes way for another: keeps it if it is under work and was changed since, each
// state of it once.
void map_work_give_way();
// Keeps the map under work in the same way, wherever it lies: it may be given up.
void map_work_keep();
// The same, and nothing is under work any more.
void map_work_end();

// Lays the map under work, of which these are the bytes, aside. They must live on until it is back.
void map_work_lay_aside(str bytes);
// Whether it lies aside and the current family is its own.
bool map_work_is_played();
// Then loads it, its rules in the bytes, and leaves it aside: a game begins on it.
void map_work_load();
// Makes its family current and loads it with rules of its own: it is edited again.
void map_work_take_back();

// The program ends: the same, and what still waits to be kept is tried a last time.
void map_work_finish();
