#pragma once

// Cards as rules write them.

#include <string>
#include <string_view>

#include "base/dyn_array.h"
#include "maps/card.h"

// "Aa1", as rules name the fields.
std::string card_text(card c);
// Reads that; false for anything else.
bool card_read(std::string_view text, card& c);
// Reads cards between commas in place of those of the pile; false when one is none.
bool cards_read(std::string_view list, dyn_array<card>& cards);
