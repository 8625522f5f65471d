#pragma once

// The rules of pushdown transitions: expressions over the card that is played and the top card of
// the discard pile.
//
//   expression: unary { ("&" | "|" | "^") unary }     one precedence, from left to right
//   unary:      [ "T" | "~" | "!" ] primary
//   primary:    "A".."F" | "a".."f" | "1".."6" | "*"
//               | "(" expression { "," expression } ")"     at most eight in a list
//
// An expression holds or not for the played card, and likewise for the top card (a letter or digit
// never does when the pile is empty). Over the values of its list, "T" asks for one that the top
// card meets, "~" for one that both meet, "!" for one that is not met; a list of two or more needs
// one of the three. Blanks, tabs and line feeds do not count. A rule that does not parse holds for
// no card; of a longer rule the first 1024 bytes that count are looked at.

#include "base/str.h"
#include "rules/cards.h"
#include "rules/rule_parser.h"

// Whether `tested` may be played on the current discard pile.
bool rule_matches(str rule, card tested);

// All card values that may be played on the current discard pile.
card_set rule_matching_cards(str rule);

rule_stop rule_stop_find(str rule);
