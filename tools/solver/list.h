#pragma once

#include <cassert>
#include <vector>

#include "base/types.h"

// The element with that index, which there must be.
template <typename element>
element& at(std::vector<element>& list, i64 index) {
    assert(0 <= index && index < static_cast<i64>(list.size()));
    return list[static_cast<std::size_t>(index)];
}

template <typename element>
const element& at(const std::vector<element>& list, i64 index) {
    assert(0 <= index && index < static_cast<i64>(list.size()));
    return list[static_cast<std::size_t>(index)];
}
