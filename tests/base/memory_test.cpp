#include <algorithm>
#include <cstring>

#include "base/dyn_array.h"
#include "base/text_builder.h"
#include "tests/support/game.h"

namespace {

using memory_test = game_test;

i64 place_of(const void* block) {
    return static_cast<const char*>(block) - arenas[arena_frame].base;
}

TEST_F(memory_test, BlocksArePlacedInTurnAndWrapInTheFrameArena) {
    struct {
        i64 offset, size, start, end;
    } const rows[] = {
        {0, 0, 0, 0},    {0, 5, 0, 5},  {13, 8, 16, 24}, {16, 8, 16, 24}, {40, 24, 40, 64},
        {40, 25, 0, 25}, {57, 1, 0, 1}, {64, 0, 64, 64}, {63, 64, 0, 64},
    };
    arenas[arena_frame].capacity = 64;
    for (const auto& row : rows) {
        arenas[arena_frame].offset = row.offset;
        EXPECT_EQ(place_of(arena_alloc(arena_frame, row.size)), row.start);
        EXPECT_EQ(arenas[arena_frame].offset, row.end) << row.offset;
    }
}

TEST_F(memory_test, ReallocGrowsTheLastBlockInPlaceAndMovesAnyOther) {
    arenas[arena_frame].capacity = 64;
    char* first = static_cast<char*>(arena_alloc(arena_frame, 8));
    std::memcpy(first, "abcdefgh", 8);
    EXPECT_EQ(arena_realloc(arena_frame, first, 8, 20), first);
    EXPECT_EQ(arena_realloc(arena_frame, first, 20, 6), first);
    arena_alloc(arena_frame, 3);  // ends at 11
    char* moved = static_cast<char*>(arena_realloc(arena_frame, first, 6, 12));
    EXPECT_EQ(place_of(moved), 16);
    EXPECT_EQ(std::string(moved, 6), "abcdef");
    char* cut = static_cast<char*>(arena_realloc(arena_frame, first, 6, 2));
    EXPECT_EQ(place_of(cut), 32);
    EXPECT_EQ(std::string(cut, 2), "ab");
    // Past the end it moves to the beginning, also over itself.
    arena_rewind(arena_frame, 8);
    char* block = static_cast<char*>(arena_alloc(arena_frame, 56));
    std::memcpy(block, "forty bytes that move over their own place", 40);
    moved = static_cast<char*>(arena_realloc(arena_frame, block, 56, 60));
    EXPECT_EQ(place_of(moved), 0);
    EXPECT_EQ(arenas[arena_frame].offset, 60);
    EXPECT_EQ(std::string(moved, 40), "forty bytes that move over their own pla");
}

TEST_F(memory_test, AFullPersistentArenaStopsTheProgram) {
    arenas[arena_persistent].capacity = 64;
    arena_alloc(arena_persistent, 64);
    EXPECT_EXIT(arena_alloc(arena_persistent, 1), testing::ExitedWithCode(1), "");
    EXPECT_EXIT(arena_realloc(arena_persistent, arenas[arena_persistent].base, 64, 65),
                testing::ExitedWithCode(1), "");
    EXPECT_EXIT(arena_alloc(arena_frame, frame_arena_capacity + 1), testing::ExitedWithCode(1), "");
    constexpr auto unknown = static_cast<arena_id>(2);
    EXPECT_EQ(output_of([] { EXPECT_EQ(arena_alloc(unknown, 8), nullptr); }),
              "failed to allocate!\n");
    EXPECT_EQ(output_of([] { EXPECT_EQ(arena_realloc(unknown, nullptr, 0, 8), nullptr); }),
              "failed to reallocate!\n");
}

TEST_F(memory_test, ArraysDoubleInTheirOwnArenaAndKeepOrMendTheirOrder) {
    for (arena_id owner : {arena_persistent, arena_frame}) {
        dyn_array<u16> array = {};
        array.arena_id = owner;
        for (u16 i = 0; i < 5; ++i) {
            dyn_array_push(array, i);
            EXPECT_EQ(array.capacity, i < 2 ? i + 1 : i < 4 ? 4 : 8);
            // Another block in between makes the next growth move the elements.
            arena_alloc(owner, i == 1 ? 3 : 0);
        }
        EXPECT_GT(arenas[owner].offset, 0);
        EXPECT_EQ(std::vector(array.begin(), array.end()), (std::vector<u16>{0, 1, 2, 3, 4}));
    }
    const std::pair<i64, std::vector<u16>> rows[] = {
        {-1, {0, 1, 2, 3}}, {0, {3, 1, 2}}, {2, {0, 1, 3}}, {3, {0, 1, 2}}, {4, {0, 1, 2, 3}}};
    for (const auto& [index, left] : rows) {
        dyn_array<u16> swapped = {};
        dyn_array<u16> kept = {};
        for (u16 i = 0; i < 4; ++i) {
            dyn_array_push(swapped, i);
            dyn_array_push(kept, i);
        }
        dyn_array_remove_swap(swapped, index);
        dyn_array_remove_at(kept, index);
        std::vector<u16> sorted = left;
        std::ranges::sort(sorted);
        EXPECT_EQ(std::vector(swapped.begin(), swapped.end()), left) << index;
        EXPECT_EQ(std::vector(kept.begin(), kept.end()), sorted) << index;
    }
}

TEST_F(memory_test, TextsAreBuiltInPlaceAndCompared) {
    text_builder builder = {};
    text_builder_put_str(builder, "hello");
    EXPECT_EQ(builder.capacity, 8);
    builder.cursor = 0;
    text_builder_put(builder, 'J');
    EXPECT_EQ(string_of(text_builder_text(builder)), "Jello");
    EXPECT_FALSE(str("ab") == str("abc") || str("ab") == str("ax"));
}

}  // namespace
