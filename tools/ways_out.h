#pragma once

#include <vector>

#include "base/types.h"

// By state of the loaded map: the transitions that leave it, in their order. They may lead to a
// state that is missing.
using ways_out = std::vector<std::vector<i64>>;

ways_out ways_out_find();

// Whether no way leads from a state back to it.
bool ways_are_acyclic(const ways_out& ways);
