#pragma once

// What the checks find in a map: one line of words for each doubtful thing.

#include <string>
#include <vector>

using remarks = std::vector<std::string>;
