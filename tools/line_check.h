#pragma once

// The lines of a map file: what its reader passes over in silence.

#include "base/str.h"
#include "maps/model.h"
#include "tools/remarks.h"

// Names every line of `text` that a map of the family ignores, that lacks fields or goes on after
// them, and every setting that the text leaves as it was. Blank lines and lines that start with
// "#" are meant to be ignored.
void lines_check(str text, machine_kind_value family, remarks& found);
