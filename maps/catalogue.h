#pragma once

// The lists of maps that the map list offers, one per family, and where custom maps are saved.

#include "base/str.h"
#include "maps/catalogue_file.h"
#include "maps/family.h"
#include "maps/model.h"

// Where the lists lie. Locked by whoever changes one of them or puts a map file in a place.
inline constexpr str catalogue_folder = "resources";

extern catalogue catalogues[machine_kind_count];        // indexed by family
extern catalogue known_catalogues[machine_kind_count];  // what this game knows to be on file
extern catalogue* current_catalogue;                    // one of them; null until one is selected
extern i64 selected_entry;                              // index into it; -1 for none

// The file of a family's catalogue.
str catalogue_path(i64 family);

// Reads the three catalogues from their files. A file that cannot be read is answered with one
// line on standard output and leaves its family without maps. Takes away what killed games left
// where maps are written.
void catalogues_load();

// Makes the current family's catalogue current and writes it to its file, with what other games
// added there meanwhile. When that fails, the list stays as it is in memory and one line on
// standard output says so.
void catalogue_save();

// Makes the current family's catalogue current, selects its first entry and loads that map.
void catalogue_select();

// Takes the selected entry out of the list in memory and deletes its map file, which is kept. The
// entry that follows it (else the last) is selected then. Nothing happens without a selected entry.
void catalogue_take_out_selected();
// The same, loads the map that is selected then, and writes the catalogue.
void catalogue_delete_selected();

// Adds an entry to the current catalogue and writes it, unless the name is there already. The
// name is copied; the path must live in the persistent arena.
void catalogue_add(str name, str path);

// The entry of that name in the current catalogue, null when there is none; valid until the
// catalogue changes.
const catalogue_entry* catalogue_find(str name);
// Selects the entry of that name in the family, or with `no_family` in the only one that has it,
// which becomes the current one. In how many it is; unless that is one, nothing changes.
i64 catalogue_select_named(str name, i64 family);
// Entries in the current catalogue; 0 when none is current.
i64 catalogue_count();
// The selected entry, null when there is none; valid until the catalogue changes.
const catalogue_entry* catalogue_selected();

// Whether one follows it.
bool catalogue_has_next();

// What is broken in the selection of a map, empty when nothing is. The lists themselves are seen to
// with the other arrays (rules/check.h).
str catalogue_fault();

// The path, in the persistent arena, under which a custom map of the current family is saved: the
// family's directory and the name, in which every byte but letters, digits, "/" and "_" becomes
// "_". It never leads out of that directory.
str custom_map_path(str name);
