#include "ai/movable.h"

stone_table stones_locate() {
    stone_table table = {per_state<u16>(no_index), per_state<i64>(0)};
    for (i64 i = 0; i < stones.count && i < no_index; ++i) {
        u16 state = stones[i];
        if (state_exists(state)) {
            if (table.first[state] == no_index) {
                table.first[state] = static_cast<u16>(i);
            }
            table.count[state] += 1;
        }
    }
    return table;
}
