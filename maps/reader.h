#pragma once

// Reading a map's text, whose lines `maps/records.h` tells. Any text is a map.

#include "base/str.h"
#include "base/types.h"
#include "maps/records.h"

// Takes the values of a record: those of its fields and of the groups that are there.
using record_taker = void (*)(void* to, record_kind kind, const record_value* values, i64 count);

// Hands the records of a text to `take` in their order. Quoted values point into the text.
void records_read(str text, record_taker take, void* to);

// Replaces states, transitions, stones and goals of the loaded map by those of the text, and every
// setting that the text names; for a state machine the nimbers are computed too. Rules point into
// the text, which must outlive the map.
void map_read(str text);
