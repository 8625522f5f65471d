#pragma once

// What the checks find in a map: one line of words for each doubtful thing.

#include <string>
#include <vector>

#include "base/types.h"

using remarks = std::vector<std::string>;

// What they call a state and a transition of the loaded map: "state 2", "transition 5 (2 to 0)".
std::string state_name(auto index) {
    return "state " + std::to_string(index);
}
std::string transition_name(i64 index);
