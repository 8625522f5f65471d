#pragma once

// Writing the loaded map as a map file and saving it as a custom map.

#include "base/str.h"
#include "base/text_builder.h"

// Appends the canonical text of the loaded map, the one form in which maps are written. Read and
// written again it gives the same bytes, as far as the reals are within 10^10.
void map_write(text_builder& text);

// Saves the loaded map under the name in the current family's directory and lists it in the
// family's catalogue. Says on standard output what is saved where, which other entry has the same
// file, and when it fails; then neither the earlier file nor the catalogue has changed.
void map_save(str name);
