#pragma once

// What the checks find in a map: one line of words for each thing, in groups.

#include <string>
#include <vector>

#include "base/str.h"
#include "base/types.h"

struct remarks {
    std::vector<std::string> breaks_play;
    std::vector<std::string> doubtful;
    std::vector<std::string> looks;   // what lies in each other's way, but for labels
    std::vector<std::string> labels;  // that lie in the way
};

// What they call a state and a transition of the loaded map: "state 2", "transition 5 (2 to 0)".
std::string state_name(i64 index);
std::string transition_name(i64 index);

// Adds one of `words/map_words`, unless it is empty.
void remark_put(std::vector<std::string>& remarks, str remark);

// By transition of the loaded map, whether it only carries words onto the board: its text has a
// "%", so that it is no rule, and it lies exactly behind an earlier one. Turing machines have none,
// for a computer seat may take every transition there.
std::vector<bool> captions_find();
