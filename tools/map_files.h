#pragma once

// The maps that commands are given, as files, codes or by the names that the player's lists have,
// and what commands write.

#include <string>
#include <string_view>
#include <vector>

#include "tools/map_code.h"
#include "tools/request.h"

// Where the map of a word is.
struct map_place {
    std::string_view word;
    str file;  // its absolute path, in the persistent arena; empty when the word names no file
};

// Enters the player's directory and reads its lists of maps. False, once it is named.
bool player_maps_load(const request& asked);

// The places of the words that stand beside the options; to be asked before the player's directory
// is entered.
std::vector<map_place> map_places_of(const request& asked);
// The same, after which the player's directory is entered and its lists are loaded if one of the
// words names no file. False, once it is named, when that cannot be done.
bool map_places_find(const request& asked, std::vector<map_place>& places);

// Makes the entry of that name in the player's lists selected, in the family or in the only one
// that has it. False, once it is named, when there is none or several have it.
bool entry_select(std::string_view name, i64 family);

// Reads the whole file at `path` and leaves nothing in the arena; false, once `name` is named, when
// that cannot be done.
bool text_file_read(str path, std::string_view name, std::string& text);

// Reads the map at the place: the word's own code, or the file's or list's text, which may be one.
// The family of a code is its own; of a text it is `family` or with `no_family` the one that it
// tells. False, once it is named, when it cannot be read, is no map or does not tell.
bool map_read_at(const map_place& place, i64 family, named_map& map);

// Reads the one map that is asked for. False, once it is named, when that cannot be done.
bool asked_map_read(const request& asked, named_map& map);

// Makes the map the loaded one; its text must outlive that. Without `nimbers` a state machine's are
// not sought.
void map_open(const named_map& map, bool nimbers = true);

// Writes the text to the file at `path`, which replaces one that is there; no folder is made for
// it. The exit status.
int text_file_write(const std::string& path, const std::string& text);
// The same with the file that is asked for; without one on standard output.
int output_write(const request& asked, const std::string& text);
