#pragma once

// Reading and writing the file of a catalogue, a list of maps.
//
// It holds one entry per line: the name, which has no blank, one blank, and the map's path, which
// runs to the line's end. Several games may work on the same file.

#include "maps/catalogue_list.h"

// What a catalogue may take of the persistent arena: its text, its entries and their copy.
inline constexpr i64 catalogue_memory_limit = i64{32} * 1024 * 1024;  // bytes

// Makes the entries of `copy` those of `list`.
void catalogue_copy(const catalogue& list, catalogue& copy);

// Appends the entries of the file; they point into its text in the persistent arena. False, with
// nothing changed, when the file cannot be read whole or takes too much memory.
bool catalogue_read(catalogue& list, str path);
// The same; a failure is answered with one line on standard output.
void catalogue_load(catalogue& list, str path);

// Replaces the file by the list; false, with the old one whole, when that fails.
bool catalogue_replace(str path, const catalogue& list);
// The same, but what other games have added to the file or taken out of it since it held the
// entries of `known` stays so; then `known` becomes the list. False, with nothing changed, also
// when the file is there and cannot be read.
bool catalogue_write(str path, const catalogue& list, catalogue& known);
