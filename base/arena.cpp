#include "base/arena.h"

#include <cassert>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

arena arenas[arena_count];

namespace {

i64 align_up(i64 offset) {
    return (offset + 7) & ~i64{7};
}

[[noreturn]] void stop_exhausted() {
    std::fwrite("failed to allocate!\n", 1, 20, stdout);
    std::exit(1);
}

void arena_create(arena& a, i64 capacity) {
    a = {static_cast<char*>(std::malloc(static_cast<std::size_t>(capacity))), capacity, 0};
    if (a.base == nullptr) {
        stop_exhausted();
    }
}

// Where a new block of `size` bytes starts, as an offset.
i64 block_start(arena_id id, i64 size) {
    const arena& a = arenas[id];
    i64 start = align_up(a.offset);
    if (start + size <= a.capacity) {
        return start;
    }
    if (id == arena_persistent || size > a.capacity) {
        stop_exhausted();
    }
    return 0;
}

}  // namespace

void arenas_create() {
    std::set_new_handler(stop_exhausted);
    arena_create(arenas[arena_persistent], persistent_arena_capacity);
    arena_create(arenas[arena_frame], frame_arena_capacity);
}

void arenas_free() {
    for (arena& a : arenas) {
        std::free(a.base);
        a = {};
    }
}

void* arena_alloc(arena_id id, i64 size) {
    if (id >= arena_count) {
        std::fwrite("failed to allocate!\n", 1, 20, stdout);
        return nullptr;
    }
    assert(size >= 0);
    i64 start = block_start(id, size);
    arenas[id].offset = start + size;
    return arenas[id].base + start;
}

void* arena_realloc(arena_id id, void* block, i64 old_size, i64 new_size) {
    if (id >= arena_count) {
        std::fwrite("failed to reallocate!\n", 1, 22, stdout);
        return nullptr;
    }
    assert(old_size >= 0 && new_size >= 0);
    arena& a = arenas[id];
    bool is_last = a.base + a.offset - old_size == block;
    if (is_last && a.offset + (new_size - old_size) <= a.capacity) {
        a.offset += new_size - old_size;
        return block;
    }
    // The new block may restart at the arena's beginning and overlap the old one.
    void* moved = arena_alloc(id, new_size);
    std::memmove(moved, block, static_cast<std::size_t>(old_size < new_size ? old_size : new_size));
    return moved;
}

i64 arena_room(arena_id id) {
    return arenas[id].capacity - align_up(arenas[id].offset);
}

bool arena_has_plenty() {
    return arena_room(arena_persistent) >= persistent_arena_capacity / 2;
}

void arena_rewind(arena_id id, i64 mark) {
    assert(mark <= arenas[id].offset);
    arenas[id].offset = mark;
}
