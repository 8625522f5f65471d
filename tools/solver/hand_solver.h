#pragma once

// What perfect play with open hands makes of deals of the loaded pushdown machine, and how often
// the hard seat's turns are best ones.

#include <functional>

#include "tools/solver/retrograde.h"

struct hand_deal {
    work_state state;  // of its search; the rest counts when that was well
    i64 positions;
    verdict found;   // for the first seat
    i64 hard_turns;  // of hard seats among themselves, where turns differed in who wins after them
    i64 hard_best;   // how many of those were as good as any
};

// Solves the running game, which must have been dealt from its start and is played to its end by
// hard seats then.
hand_deal hand_deal_solve();
