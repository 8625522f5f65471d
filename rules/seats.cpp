#include "rules/seats.h"

#include <cassert>

void seat_colour_set(player& seat, i64 index) {
    assert(0 <= index && index < seat_colour_count);
    seat.colour_index = static_cast<u8>(index);
    seat.colour = colour_rgba(index);
}

void seats_adjust() {
    assert(1 <= player_count && player_count <= player_limit);
    constexpr i64 size = sizeof(player);
    if (players.capacity < player_count) {
        players.data = static_cast<player*>(
            players.data == nullptr ? arena_alloc(players.arena_id, player_count * size)
                                    : arena_realloc(players.arena_id, players.data,
                                                    players.capacity * size, player_count * size));
        players.capacity = player_count;
    }
    for (i64 i = players.count; i < player_count; ++i) {
        players.data[i] = {};
        seat_colour_set(players.data[i], i);
    }
    players.count = player_count;
    assert(players.count <= players.capacity);
}
