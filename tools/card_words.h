#pragma once

// Cards, goals and what they are made of, in plain words.

#include <string>
#include <string_view>

#include "base/dyn_array.h"
#include "maps/model.h"

// "Aa1", as rules name the fields.
std::string card_text(card c);
// Reads that; false for anything else.
bool card_read(std::string_view text, card& c);
// Reads cards between commas in place of those of the pile; false when one is none.
bool cards_read(std::string_view list, dyn_array<card>& cards);

// "red circle 1".
std::string card_name(card c);
// Of one card "is red", "is a circle", "has the number 1"; not of it "is not red"; of two "are both
// red".
std::string property_is(card_property property);
std::string property_is_not(card_property property);
std::string property_are_both(card_property property);

// What has to be so on the tape. A measure or comparison that does not exist says that nobody can
// meet the goal.
std::string goal_sentence(const goal& g);
