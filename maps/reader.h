#pragma once

// Reading a map's text, whose lines `maps/records.h` tells, into the loaded map.

#include "base/str.h"
#include "base/types.h"

// Replaces states, transitions, stones and goals by those of the text, and every setting that the
// text names; for a state machine the nimbers are computed too. Any text is a map. Rules point into
// the text, which must outlive the map.
void map_read(str text);

// Reads a text that lies in the persistent arena behind `mark`, where it stays or from where it is
// moved. False, with all behind the mark given up and nothing else changed, when the arena has no
// room for the map.
bool map_take(str text, i64 mark);

// Reads the map file at `path`, whose text stays in the persistent arena. A file that cannot be
// read is answered with one line on standard output and changes nothing.
void map_load(str path);
