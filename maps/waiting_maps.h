#pragma once

// Maps that could not be kept on the disk, as texts in memory, the oldest first. For a new one the
// oldest go, and what goes is lost and told.

#include "base/str.h"
#include "base/types.h"

inline constexpr i64 waiting_limit = 32;                        // maps
inline constexpr i64 waiting_capacity = i64{16} * 1024 * 1024;  // bytes of all of them

struct waiting_map {
    i64 family;
    i64 name_length;  // bytes
    i64 text_length;
};

struct waiting_maps_record {
    waiting_map maps[waiting_limit];
    i64 count;
    i64 used;  // bytes of the block in which each has its name and its text
};

extern waiting_maps_record waiting_maps;

// Lets a map wait. Returns where its text of that many bytes has to be put; null, once the loss is
// told, where there is no room for it at all.
char* waiting_map_add(str name, i64 family, i64 text_length);
// Tells that the map of that name is lost.
void waiting_map_lose(str name);

// Hands each to `put`; those for which it returns true are told of as kept and wait no longer.
void waiting_maps_offer(bool (*put)(str name, i64 family, str text));
// Tells the player what waits, if anything does.
void waiting_maps_tell();
// Loses them all.
void waiting_maps_lose();

// What is broken in the list, empty when nothing is.
str waiting_maps_fault();
