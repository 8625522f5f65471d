#include "menus/title_map.h"

#include "maps/model.h"

namespace {

struct title_state {
    f64 x;
    f64 y;
};

// clang-format off
constexpr title_state states[] = {{0, 0}, {-1, -1}, {-1, 1}, {1, 1}, {1, -1}};

constexpr transition arcs[] = {
    {2, 1, 0, -32,   0, "b"},
    {3, 2, 0,   0,  40, "~(A,B,C,D)"},
    {4, 3, 0,  32,   0, "c"},
    {1, 4, 0,   0, -40, "~(1,2,3,4) & ~(a,b,c,d)"},
    {0, 1, 1,  16, -16, "4"},
    {0, 2, 1, -16, -16, "A"},
    {0, 3, 1, -16,  16, "1"},
    {0, 4, 1,  16,  16, "C"},
    {1, 0, 1, -16,  16, "3"},
    {2, 0, 1,  16,  16, "D"},
    {3, 0, 1,  16, -16, "2"},
    {4, 0, 1, -16, -16, "B"},
};
// clang-format on

}  // namespace

void title_map_build() {
    map_clear();
    game_map.origin_x = 0;
    game_map.origin_y = 0;
    game_map.scale = 128;
    for (const title_state& s : states) {
        map_add_state(s.x, s.y, 0);
    }
    for (const transition& arc : arcs) {
        map_add_transition(arc.from, arc.to, arc.bend, arc.label_dx, arc.label_dy,
                           str_copy(arc.rule));
    }
}
