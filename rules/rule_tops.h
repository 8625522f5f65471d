#pragma once

// What a rule lets through under each of many top cards, found in one reading of the rule.

#include "base/str.h"
#include "rules/cards.h"

// Top cards under which a rule says the same share an answer: a rule that asks nothing of the top
// card has one for all of them.
struct rule_answers {
    i64 count;                            // from 1
    card_set matching[card_value_count];  // by answer: the card values that may be played
    u8 of_top[card_value_count];          // by the place among the top cards: its answer
};

// The answers under each of the `count` top cards, at most one of each value. What lies on the
// discard pile plays no part.
void rule_answers_find(rule_answers& answers, str rule, const card* tops, i64 count);
