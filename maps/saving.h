#pragma once

// Saving the loaded map as a custom map.

#include "base/str.h"

// Saves the loaded map under the name in the current family's directory and lists it in the
// family's catalogue; a file of another text is kept before it is replaced. Says on standard output
// what is saved where, and when it fails; then neither the earlier file nor the catalogue has
// changed. A map whose text is beyond `text_file_limit` could not be read again and fails. A name
// that the list has for another file keeps its line there, which the player is told.
void map_save(str name);
