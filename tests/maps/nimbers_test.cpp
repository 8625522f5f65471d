#include "maps/nimbers.h"

#include <algorithm>
#include <numeric>
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
        {"...", {}, {0, 0, 0}, false},
        {"...", {{0, 1}, {1, 2}}, {0, 1, 0}, false},
        {"....", {{0, 1}, {0, 2}, {0, 3}, {1, 2}, {2, 3}}, {2, 0, 1, 0}, false},
        {"...", {{0, 1}, {0, 2}, {0, 1}, {1, 2}, {1, 2}}, {2, 1, 0}, false},
        // Arcs to and from missing states do not count.
        {"..", {{0, 1}, {1, 9}, {9, 0}, {1, 65535}}, {1, 0}, false},
        // What is reached after a cycle was entered stays unknown.
        {".", {{0, 0}}, {none}, true},
        {"..", {{0, 0}, {0, 1}}, {none, 0}, true},
        {"....", {{0, 1}, {1, 3}, {2, 2}}, {none, none, none, 0}, true},
        {"....", {{0, 1}, {1, 3}, {2, 2}, {2, 0}}, {0, 1, none, 0}, true},
        {"....", {{0, 1}, {1, 3}, {2, 0}, {2, 2}}, {none, none, none, 0}, true},
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

// Heaps from which any number, or up to so many, may be taken have known nimbers.
TEST_F(nimbers_test, HeapsOfNim) {
    for (u16 most : std::vector<u16>{1, 2, 3, 128}) {
        std::vector<arc> arcs;
        for (u16 heap = 0; heap < 128; ++heap) {
            for (u16 left = heap > most ? static_cast<u16>(heap - most) : 0; left < heap; ++left) {
                arcs.push_back({heap, left});
            }
        }
        map_make(state_machine, std::string(128, '.'), arcs);
        for (u16 heap = 0; heap < 128; ++heap) {
            EXPECT_EQ(state_nimber(heap), heap % (most + 1));
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

// The smallest value that no successor has, straight from the definition.
std::vector<int> plain_nimbers(std::size_t count, const std::vector<arc>& arcs) {
    std::vector<int> nimbers(count, -1);
    for (bool settled = false; !settled;) {
        settled = true;
        for (u16 s = 0; s < count; ++s) {
            std::vector<int> successors;
            for (const arc& a : arcs) {
                if (a.from == s) {
                    successors.push_back(nimbers[a.to]);
                }
            }
            auto has = [&](int value) {
                return std::find(successors.begin(), successors.end(), value) != successors.end();
            };
            if (nimbers[s] < 0 && has(-1)) {
                settled = false;
            } else if (nimbers[s] < 0) {
                nimbers[s] = 0;
                while (has(nimbers[s])) {
                    nimbers[s] += 1;
                }
            }
        }
    }
    return nimbers;
}

TEST_F(nimbers_test, RandomAcyclicMapsAgreeWithTheDefinition) {
    for (u64 seed = 1; seed <= 150; ++seed) {
        std::mt19937_64 random(seed);
        std::size_t count = 1 + random() % 40;
        std::vector<u16> order(count);
        std::iota(order.begin(), order.end(), u16{0});
        std::shuffle(order.begin(), order.end(), random);
        std::vector<arc> arcs;
        for (u64 left = count > 1 ? random() % (count * 5) : 0; left > 0; --left) {
            std::size_t to = 1 + random() % (count - 1);
            arcs.push_back({order[random() % to], order[to]});
        }
        EXPECT_EQ(output_of([&] { map_make(state_machine, std::string(count, '.'), arcs); }), "");
        EXPECT_EQ(nimbers_of_map(), plain_nimbers(count, arcs)) << "seed " << seed;
    }
}

TEST_F(nimbers_test, HugeMapsAreAnsweredAtOnce) {
    std::vector<arc> arcs(400'000, {0, 1});
    arcs.push_back({0, 0});
    EXPECT_EQ(output_of([&] { map_make(state_machine, "..", arcs); }), failure);
    EXPECT_EQ(nimbers_of_map(), std::vector<int>({no_nimber, 0}));
    arcs.assign(400'000, {0, 0});
    EXPECT_EQ(output_of([&] { map_make(state_machine, ".", arcs); }), failure);
    // A long line of states, and more states than an index can name.
    arcs.clear();
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
