#pragma once

// A rule's text as it is read, without its blanks, and where reading it stopped.

#include "base/str.h"

inline constexpr i64 rule_length_limit = 1024;  // bytes that count

extern char rule_buffer[rule_length_limit];  // the rule that is read, without its blanks

// Copies the rule without its blanks into `rule_buffer`; returns the bytes stored.
i64 rule_squeeze(str rule);
// The place in the rule of a byte of `rule_buffer`.
i64 rule_unsqueeze(str rule, i64 position);

// Where reading a rule stopped, and why, in words.
struct rule_stop {
    i64 position;  // byte of the rule; its length when it ends too early
    str reason;    // empty when the rule parses
};
