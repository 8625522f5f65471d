#pragma once

// Where a player's files are.
//
// A directory that holds the game's own `resources` is whole and played in as it is. Everywhere
// else the game works in a player's directory, which holds only what is the player's: custom maps
// and the three catalogues. All that is missing there is read from the data that ships. Its
// `.shipped` holds the catalogues as they shipped at the last start, by which an entry that is new
// is told from one that the player has removed; it also marks the directory as a player's.

#include "base/str.h"
#include "base/types.h"

// Whether the directory is whole, told by the font's description in its `resources`: a folder of
// that name may be anybody's.
bool directory_is_whole(str directory);

// The directory that holds the shipped `resources`, by where the program lies: the installed data,
// or the tree that the program was built in. Empty when there is none.
str shipped_data_find();

// Enters the directory to play in: `directory`, when empty the working one if it is whole or a
// player's, else this user's. A player's list keeps its order: the entries that ship since its last
// start come to its end, all that it lacks with `restore`, and those that ship no more go. What a
// player's directory lacks is read from `data`; with an empty `data` it is left as it is. The maps
// of the day ship as well, where they can be written; with `no_day` those of another day do. False
// when the directory cannot be entered.
bool player_files_enter(str directory, str data, bool restore, i64 day);
