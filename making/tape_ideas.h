#pragma once

// What a turing machine's ways write and what its goals count, for each map one idea.

#include "base/str.h"
#include "base/types.h"

inline constexpr i64 tape_idea_count = 3;

// What a player calls it, such as "paint".
str tape_idea_name(i64 idea);

// Sets the deck's colours, shapes and numbers, few of what the idea is about: other values of it
// are fresh, on no card before they are written.
void tape_deck_set(i64 idea);

// An action, chosen by chance, in the frame arena.
str tape_action_choose(i64 idea);

// Adds so many goals, no two alike; fewer where chance finds no others.
void tape_goals_add(i64 idea, i64 count);
