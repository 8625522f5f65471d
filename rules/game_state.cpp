#include "rules/game_state.h"

dyn_array<player> players;
i64 player_count = 3;
turn_record turn;

player& current_seat() {
    return players[turn.current_player];
}

void humans_count() {
    turn.human_count = 0;
    for (const player& seat : players) {
        turn.human_count += seat.is_computer ? 0 : 1;
    }
}
