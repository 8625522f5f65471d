#include "rules/game_state.h"

dyn_array<player> players;
i64 player_count = 3;
turn_record turn;
selection_record selection;
flight_record flight;
u16 stone_stack[stone_stack_size];

player& current_seat() {
    return players[turn.current_player];
}
