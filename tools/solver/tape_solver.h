#pragma once

// What perfect play makes of all deals of the loaded turing machine: of every tape that its deck
// can be dealt, weighed by how often it is, and of the goals seat by seat.

#include <functional>
#include <vector>

#include "tools/solver/deals.h"
#include "tools/solver/work.h"

struct tape_deals {
    std::vector<std::size_t> goals;  // by seat, among the map's
    deals_share share;               // all its tapes weigh 1
};

// Calls tell(deals) for every choice of goals that the seats can be dealt, which are all equally
// frequent; the running game must have been dealt from its start. Choices for which there is too
// little memory are left out and counted. What was told before the work was stopped holds.
work_state tape_deals_solve(const std::function<void(const tape_deals&)>& tell, i64& too_large);
