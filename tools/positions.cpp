#include "tools/positions.h"

#include "game/game_file.h"
#include "game/game_reader.h"
#include "platform/file.h"
#include "program/map_import.h"
#include "rules/cards.h"
#include "rules/deal.h"
#include "rules/random.h"
#include "rules/seats.h"
#include "tools/position_words.h"

namespace {

bool game_take(const map_place& place, named_map& game) {
    text_fault fault;
    if (!text_file_read(place.file, place.word, game.text)) {
        return false;
    }
    const bool is_read = game_read(str_from(game.text), trust_text, fault);
    if (fault.reason.length > 0 || !is_read) {
        complain(place.word,
                 "line " + std::to_string(fault.line) + ": " + std::string(view_of(fault.reason)));
        return false;
    }
    if (turn.winner != no_winner) {
        complain(place.word, "is over: " + seat_title(turn.winner) + " has won");
        return false;
    }
    game.family = machine_kind;
    game.name = view_of(map_name_of_file(place.file));
    return true;
}

bool map_deal(const request& asked, const map_place& place, named_map& map) {
    if (!map_read_at(place, asked.family, map)) {
        return false;
    }
    map_open(map, false);
    players.count = 0;  // what a position before left behind
    tape_head = 0;
    turn = {};
    player_count = asked.seat_count;
    seats_adjust();
    random_seed(asked.seed);
    game_start();
    return true;
}

}  // namespace

bool position_take(const request& asked, const map_place& place, given_position& given) {
    given.is_game = file_exists(place.file) && file_is_game(place.file);
    return given.is_game ? game_take(place, given.map) : map_deal(asked, place, given.map);
}
