#pragma once

// The words of a game's text, for its writer and its reader.

#include "base/str.h"
#include "rules/acts.h"
#include "rules/game_state.h"

inline constexpr str game_version = "1";
inline constexpr str game_colours[seat_colour_count] = {"red",    "blue",   "green",
                                                        "yellow", "purple", "orange"};
inline constexpr str game_act_words[act_kind_count] = {"", "move", "draw", "end", "pass"};
inline constexpr str game_computer_word = "ai";    // before what a computer did
inline constexpr str game_flying_word = "flying";  // behind what was done while a stone flew
inline constexpr str game_map_prefix = "| ";       // of the map's lines
inline constexpr str game_text_start = "quorrel game ";
