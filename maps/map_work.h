#pragma once

// The map under work in the editor. Changes that no file holds are not lost by a slip of the hand:
// before they are given up, the map is put into "kept/".

#include "base/str.h"
#include "base/types.h"

struct map_work_record {
    bool open = false;
    i64 family = 0;      // of the map, whatever family becomes the current one
    str path = {};       // where it was loaded from or saved last; empty for a new map
    u64 print = 0;       // the fingerprint of what the file there holds
    u64 kept_print = 0;  // of what was kept last
};

extern map_work_record map_work;

// The loaded map, one of the current family, comes under work as a new one without a name.
void map_work_begin();
// While a map is under work: what is loaded now is what the file at `path` holds. The path must
// live on.
void map_work_is_saved(str path);
// Keeps the map under work if it was changed since, each state of it once; called before it is, or
// may be, given up.
void map_work_keep();
// The same, and nothing is under work any more.
void map_work_end();

// The program ends: the same, and what still waits to be kept is tried a last time.
void map_work_finish();
