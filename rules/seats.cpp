#include "rules/seats.h"

#include <algorithm>
#include <cassert>
#include <iterator>

#include "maps/scan.h"

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

bool seat_list_read(str words, seat_list& list) {
    text_cursor cursor = {words.data, words.length, 0};
    for (list = {}; list.count < player_limit; cursor.position += 1) {
        str word = text_scan_until(cursor, ',');
        const str* kind = std::find(std::begin(seat_kinds), std::end(seat_kinds), word);
        if (kind == std::end(seat_kinds)) {
            return false;
        }
        list.kinds[list.count] = kind - seat_kinds;
        list.count += 1;
        if (cursor.position >= cursor.size) {
            return true;
        }
    }
    return false;
}

void seats_set(const seat_list& list) {
    player_count = list.count;
    seats_adjust();
    for (i64 i = 0; i < list.count; ++i) {
        players[i].is_computer = list.kinds[i] > 0;
        players[i].strength = static_cast<u64>(std::max(list.kinds[i] - 1, i64{strength_easy}));
        seat_colour_set(players[i], i);
    }
}
