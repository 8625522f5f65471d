#pragma once

// The running game's position, in lines.

#include <string>
#include <vector>

#include "base/dyn_array.h"
#include "maps/card.h"

// "seat 1 (red)".
std::string seat_title(i64 seat);

// "Aa1 Bb2", the top card last.
std::string cards_text(const dyn_array<card>& cards);

// The tape and its head, the pile's top card, and what each seat holds or wants; nothing of a state
// machine.
std::vector<std::string> position_lines();
