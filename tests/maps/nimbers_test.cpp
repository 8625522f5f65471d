#include "maps/nimbers.h"

#include <algorithm>
#include <random>

#include "tests/support/game.h"

namespace {

using nimbers_test = game_test;

constexpr const char* failure = "failed to calculate nimbers!\n";

std::vector<int> nimbers_of_map() {
    return {game_map.nimbers, game_map.nimbers + game_map.nimber_count};
}

TEST_F(nimbers_test, SmallMaps) {
    constexpr int none = no_nimber;
    struct {
        const char* states;
        std::vector<arc> arcs;
        std::vector<int> nimbers;
        bool fails;
    } const rows[] = {
        {"", {}, {}, false},
        {"...", {{0, 1}, {1, 2}}, {0, 1, 0}, false},
        {"....", {{0, 1}, {0, 2}, {0, 3}, {1, 2}, {2, 3}}, {2, 0, 1, 0}, false},
        // Arcs to and from missing states do not count.
        {"..", {{0, 1}, {1, 9}, {9, 0}, {1, 65535}}, {1, 0}, false},
        // What is reached after a cycle was entered stays unknown.
        {".", {{0, 0}}, {none}, true},
        {"..", {{0, 0}, {0, 1}}, {none, 0}, true},
        {"....", {{0, 1}, {1, 3}, {2, 2}}, {none, none, none, 0}, true},
        {"....", {{0, 1}, {1, 3}, {2, 2}, {2, 0}}, {0, 1, none, 0}, true},
        {"....", {{1, 2}, {2, 3}, {3, 1}, {3, 0}}, {0, none, none, none}, true},
        {"....", {{1, 2}, {2, 3}, {3, 0}, {3, 1}}, {none, none, none, none}, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        EXPECT_EQ(output_of([&] { map_make(state_machine, row.states, row.arcs); }),
                  row.fails ? failure : "");
        EXPECT_EQ(nimbers_of_map(), row.nimbers);
    }
}

// On any map without a cycle, a nimber is the smallest value that no successor has.
TEST_F(nimbers_test, TheSmallestExcludedValue) {
    for (u64 seed = 1; seed <= 60; ++seed) {
        std::mt19937_64 random(seed);
        std::size_t count = 2 + random() % 40;
        std::vector<u16> order(count);
        for (std::size_t i = 0; i < count; ++i) {
            order[i] = static_cast<u16>(i);
        }
        std::shuffle(order.begin(), order.end(), random);
        std::vector<arc> arcs;
        for (u64 left = random() % (count * 5); left > 0; --left) {
            std::size_t to = 1 + random() % (count - 1);
            arcs.push_back({order[random() % to], order[to]});
        }
        EXPECT_EQ(output_of([&] { map_make(state_machine, std::string(count, '.'), arcs); }), "");
        for (u16 s = 0; s < count; ++s) {
            std::vector<bool> taken(count + 1);
            for (const arc& a : arcs) {
                taken[state_nimber(a.to)] = taken[state_nimber(a.to)] || a.from == s;
            }
            EXPECT_EQ(state_nimber(s),
                      std::find(taken.begin(), taken.end(), false) - taken.begin());
        }
    }
}

TEST_F(nimbers_test, AStateThatWouldNeed128StaysUnknown) {
    std::vector<arc> arcs;
    for (u16 from = 0; from <= 128; ++from) {
        for (u16 to = 0; to < from; ++to) {
            arcs.push_back({from, to});
        }
    }
    EXPECT_EQ(output_of([&] { map_make(state_machine, std::string(129, '.'), arcs); }), failure);
    EXPECT_EQ(state_nimber(127), 127);
    EXPECT_EQ(state_nimber(128), no_nimber);
}

// State 1 waits once and is settled once; each of its transitions is one more step, the first of
// them settles state 0, which is then met once more.
TEST_F(nimbers_test, TheSearchHas1048576Steps) {
    for (auto [arcs, said] : {std::pair{1'048'576 - 3, ""}, {1'048'576 - 2, failure}}) {
        map_make(state_machine, "..", std::vector<arc>());
        for (i64 i = 0; i < arcs; ++i) {
            map_add_transition(1, 0, 0, 0, 0, {});
        }
        EXPECT_EQ(output_of(nimbers_compute), said);
        arena_rewind(arena_frame, 0);
        game_map = {};
        arena_rewind(arena_persistent, 0);
    }
}

TEST_F(nimbers_test, MoreStatesThanAnIndexCanName) {
    std::vector<arc> arcs;
    for (u16 s = 0; s < 65'534; ++s) {
        arcs.push_back({s, static_cast<u16>(s + 1)});
    }
    EXPECT_EQ(output_of([&] { map_make(state_machine, std::string(70'000, '.'), arcs); }), "");
    EXPECT_EQ(state_nimber(0), 0);
    EXPECT_EQ(state_nimber(1), 1);
    EXPECT_EQ(state_nimber(65'534), 0);
    EXPECT_EQ(state_nimber(no_index), no_nimber);
}

}  // namespace
