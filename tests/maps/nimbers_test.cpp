#include "maps/nimbers.h"

#include <algorithm>
#include <numeric>
#include <random>

#include "tests/support/game.h"

namespace {

using nimbers_test = game_test;

constexpr const char* failure = "failed to calculate nimbers!\n";

// On any map without a cycle, a nimber is the smallest value that no successor has.
TEST_F(nimbers_test, TheSmallestExcludedValue) {
    for (u64 seed = 1; seed <= 60; ++seed) {
        std::mt19937_64 random(seed);
        std::size_t count = 2 + random() % 40;
        std::vector<u16> order(count);
        std::iota(order.begin(), order.end(), u16{0});
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

TEST_F(nimbers_test, AMapMayHaveAMillionTransitions) {
    map_make(state_machine, "..", {});
    for (i64 i = 0; i < 1'000'000; ++i) {
        map_add_transition(1, 0, 0, 0, 0, {});
    }
    EXPECT_EQ(output_of(nimbers_compute), "");
    EXPECT_EQ(state_nimber(1), 1);
    while (game_map.states.count < no_index) {  // with as many states the search gives up
        map_add_state(0, 0, 0);
    }
    for (transition& arc : game_map.transitions) {
        arc.from = no_index - 1;
    }
    arena_rewind(arena_frame, 0);
    EXPECT_EQ(output_of(nimbers_compute), failure);
    map_add_transition(1, 0, 0, 0, 0, {});
    arena_rewind(arena_frame, 0);
    EXPECT_EQ(output_of(nimbers_compute), failure);
    EXPECT_EQ(state_nimber(1), no_nimber);
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
