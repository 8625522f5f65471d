#pragma once

// Two catalogues that were one are brought together again.

#include "maps/catalogue_list.h"

// Makes `merged` the list, with what has happened in `other` since both held the entries of
// `known`: what went from there goes, what came there follows at the end. Nothing else moves, and
// an entry that stands twice stays so. False, with `merged` empty, when the persistent arena lacks
// the room; it lives there and must not be used before.
bool catalogue_merge(const catalogue& list, const catalogue& known, const catalogue& other,
                     catalogue& merged);
