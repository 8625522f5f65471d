#pragma once

// The directory "kept/", where maps are put as NAME.FAMILY.DATE_TIME, such as
// "kept/my_map_.pushdown.2026-11-23_18-30-05". The newest 100 stay. A kept file is a map file like
// any other.
//
// What cannot be put there waits in memory (maps/waiting_maps.h): the player is told, and it is
// tried again with every later map that is kept or saved, from time to time, and at the program's
// end.

#include "base/str.h"
#include "base/types.h"

inline constexpr str kept_folder = "kept";

// Puts the loaded map, which is of that family and known by that path, into the directory. An empty
// path is a map without a name.
void kept_map_put(str path, i64 family);
// The same with the map file at `path`, which is about to be deleted or replaced; it does nothing
// when there is none.
void kept_file_put(str path, i64 family);

// Tries again what waits, and tells the player what is kept now or waits still.
void kept_try();
// Tries a last time. What cannot be kept is lost, and told.
void kept_end();

// Takes the name and the family out of a kept file's path; false, with nothing changed, when the
// path is none.
bool kept_path_read(str path, str& name, i64& family);
