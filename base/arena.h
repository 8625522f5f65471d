#pragma once

// The two bump arenas that hold all dynamic memory of the game.
//
// A block is placed at the next multiple of 8 bytes; nothing stands in front of it and nothing is
// freed singly. The persistent arena holds what outlives a frame. The frame arena holds scratch:
// it is rewound at the top of every frame, and a block that does not fit is placed at its
// beginning, over whatever was there, so one frame's live scratch must stay under its capacity.
// Live data of the persistent arena is never overwritten: when it is full, the program says
// "failed to allocate!" and stops with exit status 1.

#include <algorithm>
#include <type_traits>

#include "base/types.h"

enum arena_id : u8 { arena_persistent = 0, arena_frame = 1, arena_count };

inline constexpr i64 persistent_arena_capacity = 268'435'456;  // bytes, 256 MiB
inline constexpr i64 frame_arena_capacity = 16'777'216;        // bytes, 16 MiB

struct arena {
    char* base;
    i64 capacity;  // bytes
    i64 offset;    // bytes in use; the next free byte is base + offset
};

extern arena arenas[arena_count];

// Takes both arenas' memory, once and first; what a library cannot get from then on stops alike.
void arenas_create();
// Gives both arenas' memory back; every block is gone.
void arenas_free();

// A block of `size` >= 0 bytes. An id that names no arena is answered with one line on standard
// output and a null pointer.
void* arena_alloc(arena_id id, i64 size);
// Grows or shrinks a block, in place when it is the arena's last one; else its first `old_size`
// bytes move to a new block and the old one is abandoned. Returns the block's place. An id that
// names no arena: one line on standard output and a null pointer.
void* arena_realloc(arena_id id, void* block, i64 old_size, i64 new_size);
// The largest block, in bytes, that can still be placed behind the arena's other ones.
i64 arena_room(arena_id id);
// Whether so much of the persistent arena is left that what is loaded anew may take a new block;
// else it takes the one of what was loaded before.
bool arena_has_plenty();
// Gives up everything placed since the arena's offset was `mark`.
void arena_rewind(arena_id id, i64 mark);

// `count` >= 0 plain elements in the frame arena, each a copy of `value`.
template <typename element>
element* frame_array(i64 count, element value) {
    static_assert(std::is_trivially_copyable_v<element>);
    i64 bytes = count * static_cast<i64>(sizeof(element));
    auto* elements = static_cast<element*>(arena_alloc(arena_frame, bytes));
    std::fill(elements, elements + count, value);
    return elements;
}
