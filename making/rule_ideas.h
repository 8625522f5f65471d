#pragma once

// What the rules of a pushdown machine are about, for each map one idea.

#include "base/str.h"
#include "base/types.h"

inline constexpr i64 rule_idea_count = 4;

// What a player calls it, such as "ladder".
str rule_idea_name(i64 idea);

// The fields of the cards that a map's rules ask for, each one of `card_field` and none twice: what
// the idea is about, and what the plain rules are.
struct rule_fields {
    u8 main;
    u8 plain[2];
};

rule_fields rule_fields_choose(i64 idea);

// Rules for cards of the loaded settings, chosen by chance, in the frame arena: one of the idea; a
// plain one; a plain one that the card red, circle, 1 meets, so that nobody gets stuck once the
// deck is empty.
str idea_rule(i64 idea, const rule_fields& fields);
str plain_rule(const rule_fields& fields);
str safe_rule(const rule_fields& fields);
str short_rule(const rule_fields& fields);
