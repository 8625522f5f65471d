#pragma once

// Files that ask as much of the game as their size allows, each in another way.

#include <span>
#include <string>

#include "base/types.h"

struct worst_file {
    const char* name;
    i64 family;
    std::string (*make)(std::size_t size);  // a text of at most that many bytes, and about as many
};

// Maps.
std::span<const worst_file> worst_maps();

std::string worst_catalogue(std::size_t size);
std::string worst_font(std::size_t size);
