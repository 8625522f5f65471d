#pragma once

// A list of maps: the names that players read and the files they stand for.

#include "base/dyn_array.h"
#include "base/str.h"

struct catalogue_entry {
    str name;
    str path;

    bool operator==(const catalogue_entry&) const = default;
};

using catalogue = dyn_array<catalogue_entry>;
