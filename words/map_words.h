#pragma once

// What is wrong with a map, in the words of the editor and of `quorrel_maps check`, which live in
// the frame arena. A remark is empty where all is well.

#include "base/str.h"

// "state 2", "transition 5 (2 to 0)".
str state_words(i64 index);
str transition_words(i64 index);

// Of a stone: that it stands on a state that is missing.
str stone_remark(i64 stone);
// Of a transition: that it names a state that is missing; that its rule does not parse.
str reference_remark(i64 transition);
str rule_remark(i64 transition);
// Of the win mode: that it does not exist, or that no state accepts.
str win_mode_remark();
