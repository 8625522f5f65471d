#pragma once

// Telling a map maker that a rule cannot be read, by the current family: where a pushdown rule
// stops and why, and what a turing machine's action does not do. Any text does for a state machine.

#include "base/str.h"

struct rule_advice_record {
    bool complained = false;  // about the rule as it was when it was looked at last
};

extern rule_advice_record rule_advice;

// `finished` is false while the rule is still typed: then what may follow is not missed.
void rule_advice_tell(str rule, bool finished);
