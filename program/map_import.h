#pragma once

// Takes map files from anywhere into the player's custom maps.

#include "base/str.h"
#include "base/types.h"

// Copies the map at `path` into the custom maps of its family, which becomes the current one, and
// lists it there under the file's name, with a number behind it when the name is taken. A map that
// is there already is not added again. Its entry is the selected one then. The family is `family`,
// or with `no_family` the one that the file tells. Says what it did in one line on standard output;
// false, with the reason in one line on standard error and nothing changed, when it cannot be done.
// The catalogues must be loaded.
bool map_import(str path, i64 family);

// The same with the text of a map, the name that it is to have and its family.
bool map_text_import(str name, str text, i64 family);

// The name that the file at `path` gives its map: a kept file's map, else the file's name without
// folder and extension.
str map_name_of_file(str path);

// The family of the map at `path` with that text: a kept file's, else the one that the text tells,
// or `no_family`.
i64 map_family_of_file(str path, str text);
