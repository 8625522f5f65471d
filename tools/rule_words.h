#pragma once

// A rule taken apart and said in plain words.

#include <string>
#include <string_view>
#include <vector>

#include "maps/card.h"

struct rule_part {
    char kind;         // '&', '|', '^'; 'T', '~', '!' before its one part; else the primary itself
    std::string text;  // a rule of its own, without blanks
    std::vector<rule_part> parts;
};

// The parts of a rule that parses. A list becomes a '|' of its operator before each expression,
// which says the same.
rule_part rule_parts_read(std::string_view rule);

// The part as a sentence about "the card" and "the top card".
std::string rule_sentence(const rule_part& part);

// Whether the part holds for a card on the current discard pile.
bool rule_part_holds(const rule_part& part, card played);

// The smallest part that alone makes the whole hold or not.
const rule_part& rule_part_deciding(const rule_part& whole, card played);
