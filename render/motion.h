#pragma once

// Whether things move only where the game does: no picture breathes, no stone flies, nothing
// shakes.

struct motion_record {
    bool still = false;  // asked for on the command line
};

extern motion_record motion;

// Asked for there or by the player's system, which may change its mind at any time.
bool motion_is_reduced();
