#pragma once

// A player's work is not lost by a slip of the hand: before a map file is replaced or deleted, and
// before changes that no file holds are given up, the map is put into the directory "kept/" as
// NAME.FAMILY.DATE_TIME, such as "kept/my_map_.pushdown.2026-11-23_18-30-05". The newest 100 stay.
// A kept file is a map file like any other. When keeping fails, one line on standard output says
// so, and what was asked for is done all the same.

#include "base/str.h"
#include "base/types.h"

inline constexpr str kept_folder = "kept";

// The map under work in the editor.
struct map_work_record {
    bool open = false;
    str path = {};  // where it was loaded from or saved last; empty for a new map
    u64 print = 0;  // the fingerprint of what the file there holds
};

extern map_work_record map_work;

// Keeps the file at `path`, a map of the current family that is about to be deleted or replaced; it
// does nothing when there is none.
void map_file_keep(str path);

// The loaded map comes under work, as a new one without a name.
void map_work_begin();
// While a map is under work: what is loaded now is what the file at `path` holds. The path must
// live on.
void map_work_is_saved(str path);
// Keeps the map under work if it was changed since; called before it is given up.
void map_work_keep();
// The same, and nothing is under work any more.
void map_work_end();

// Takes the name and the family out of a kept file's path; false, with nothing changed, when the
// path is none.
bool kept_path_read(str path, str& name, i64& family);
