#pragma once

// A rule taken apart and said in plain words. What is returned lives in the frame arena, and takes
// less than a megabyte of it.

#include "base/str.h"
#include "maps/card.h"

struct rule_part {
    char kind;         // '&', '|', '^'; 'T', '~', '!' before its one part; else the primary itself
    str text;          // a rule of its own, without blanks
    rule_part* first;  // of its parts; null when it has none
    rule_part* next;   // beside it in the part that it belongs to; null behind the last
};

// The parts of a rule that parses. A list becomes a '|' of its operator before each expression,
// which says the same.
const rule_part& rule_parts_read(str rule);

// The part as a sentence about "the card" and "the top card".
str rule_sentence(const rule_part& part);

// Whether the part holds for a card on the current discard pile.
bool rule_part_holds(const rule_part& part, card played);

// The smallest part that alone makes the whole hold or not.
const rule_part& rule_part_deciding(const rule_part& whole, card played);
