#pragma once

// What a text tells of itself: whether it is a map, and of which family. A map's file does not
// name its family; its settings and rules mostly give it away.

#include "base/str.h"
#include "base/types.h"
#include "maps/model.h"

inline constexpr i64 no_family = -1;

// What command lines, kept files and codes call the families.
inline constexpr str family_names[machine_kind_count] = {"state", "pushdown", "turing"};

// The family of that name, `no_family` when there is none.
i64 family_named(str name);

// Whether a line of it is one that every map has: a view or a state, with its numbers.
bool text_is_map(str text);

// The family of a map's text; `no_family` where the lines do not tell:
//   - `hand` is of pushdown machines, `tape` and `goal` are of turing machines;
//   - with neither of them nor a `deck` it is a state machine;
//   - a deck alone leaves it to the transitions' texts: operators make a rule, a second letter "L"
//     or "R" an action.
i64 map_family_find(str text);
