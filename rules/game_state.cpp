#include "rules/game_state.h"

dyn_array<player> players;
i64 player_count = 3;
turn_record turn;

player& current_seat() {
    return players[turn.current_player];
}
