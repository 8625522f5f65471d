#pragma once

// A growable array of plain records that remembers its arena.
//
// A zeroed record is a valid empty array in the persistent arena. Capacities run 1, 2, 4, 8, ...;
// the last block of an arena grows in place. A push may move the elements: no pointer or reference
// to one lives across it.

#include <algorithm>
#include <cassert>
#include <type_traits>

#include "base/arena.h"
#include "base/types.h"

template <typename element>
struct dyn_array {
    static_assert(std::is_trivially_copyable_v<element>);

    element* data;  // null while nothing was allocated
    i64 count;
    i64 capacity;         // elements
    ::arena_id arena_id;  // where `data` lives

    element& operator[](i64 i) {
        assert(0 <= i && i < count);
        return data[i];
    }
    const element& operator[](i64 i) const {
        assert(0 <= i && i < count);
        return data[i];
    }
    element* begin() { return data; }
    element* end() { return data + count; }
    const element* begin() const { return data; }
    const element* end() const { return data + count; }
};

// Appends a copy of `value`.
template <typename element>
void dyn_array_push(dyn_array<element>& array, std::type_identity_t<element> value) {
    constexpr i64 size = sizeof(element);
    if (array.data == nullptr) {
        array.capacity = 1;
        array.data = static_cast<element*>(arena_alloc(array.arena_id, size));
    }
    if (array.count >= array.capacity) {
        array.data = static_cast<element*>(arena_realloc(
            array.arena_id, array.data, array.capacity * size, 2 * array.capacity * size));
        array.capacity *= 2;
    }
    array.data[array.count] = value;
    array.count += 1;
}

// Makes room for `count` elements: at first for just as many, later for at least twice as many as
// before.
template <typename element>
void dyn_array_reserve(dyn_array<element>& array, i64 count) {
    constexpr i64 size = sizeof(element);
    if (count <= array.capacity) {
        return;
    }
    if (array.data == nullptr) {
        array.capacity = count;
        array.data = static_cast<element*>(arena_alloc(array.arena_id, count * size));
        return;
    }
    i64 capacity = std::max(count, 2 * array.capacity);
    array.data = static_cast<element*>(
        arena_realloc(array.arena_id, array.data, array.capacity * size, capacity * size));
    array.capacity = capacity;
}

// Removes the element at `index` by moving the last one into its place; the order changes.
// Does nothing when `index` is out of range.
template <typename element>
void dyn_array_remove_swap(dyn_array<element>& array, i64 index) {
    if (index < 0 || index >= array.count) {
        return;
    }
    array.count -= 1;
    array.data[index] = array.data[array.count];
}

// Removes the element at `index` and moves the later ones down by one; the order stays.
// Does nothing when `index` is out of range.
template <typename element>
void dyn_array_remove_at(dyn_array<element>& array, i64 index) {
    if (index < 0 || index >= array.count) {
        return;
    }
    for (i64 i = index; i + 1 < array.count; ++i) {
        array.data[i] = array.data[i + 1];
    }
    array.count -= 1;
}
