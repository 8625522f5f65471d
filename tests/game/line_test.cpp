// What the line says of a game: every refused click, every act, every end.

#include <map>

#include "base/tidings.h"
#include "rules/acts.h"
#include "rules/cards.h"
#include "rules/seats.h"
#include "shown/screens.h"
#include "shown/selection.h"
#include "tests/support/screen.h"

namespace {

struct board {
    i64 kind;
    std::vector<arc> arcs;
    u8 win_mode;
    const char* hand;  // the first seat's
    const char* deck;
    const char* pile;
};

// State 2 is a light one, the stones stand on 0 and 1.
const std::map<std::string, board> boards = {
    {"state", {state_machine, {{0, 2}, {2, 3}}, win_any_accepting, "", "", ""}},
    {"race", {state_machine, {{0, 3}}, win_immediate, "", "", ""}},
    {"cards",
     {pushdown_machine,
      {{0, 1, "B"}, {1, 0, "~(A&1)"}, {1, 1, "(A"}, {1, 2, ""}, {0, 0, "T(a)|b"}, {0, 3, "A"}},
      win_immediate,
      "Aa1 Bb2",
      "Fe6",
      ""}},
    {"stack",
     {pushdown_machine, {{0, 1, "T(A,B)"}, {1, 0, "!1&A"}}, win_immediate, "Aa1", "", "Db4"}},
    {"last", {pushdown_machine, {{0, 2, "A"}}, win_all_accepting, "Aa1", "Fe6", ""}},
    {"gone", {pushdown_machine, {{0, 2, "A"}}, win_any_accepting, "Aa1", "Fe6", ""}},
    {"tape",
     {turing_machine, {{0, 2, "3R"}, {1, 0, "Fz"}, {1, 2, "4L"}}, win_immediate, "", "", ""}},
    {"far", {turing_machine, {{1, 3, "4L"}}, win_all_accepting, "", "", ""}},
};

class line_test : public screen_test {
  protected:
    line_test() {
        begin();
        screens.title_menu_open = false;
    }

    static void game_make(const board& made, const std::string& seats) {
        seats_make(seats);
        map_make(made.kind, "..*.", made.arcs, {0, 1});
        game_map.origin_x = -128;
        settings.win_mode = made.win_mode;
        settings.tape_length = 2;
        pile_set(deck.cards, made.deck);
        pile_set(discard_pile.cards, made.pile);
        pile_set(tape, "Aa1 Bb2");
        for (player& seat : players) {
            seat_colour_set(seat, &seat - players.data);
            pile_set(seat.hand, made.kind == pushdown_machine ? "Aa1 Bb2" : "");
            seat.goal = {measure_sum, compare_exactly, 6, {}, {}};
        }
        pile_set(players[0].hand, made.hand);
        turn = {};
        turn.turn_revealed = true;
        selection = {};
        tape_head = 0;
        last_done = {{}, 0, false, {}, last_done.number + 1};
    }

    static void act(char letter) {
        const std::map<char, point> places = {
            {'a', {-64, -336}}, {'b', {80, -336}}, {'d', {-128, 336}}, {'p', {128, 336}},
            {'e', {430, 336}},  {'o', {0, 150}},   {'r', {0, 150}},    {'0', {-128, 0}},
            {'1', {0, 0}},      {'2', {128, 0}},   {'3', {256, 0}}};
        if (letter == 's') {
            headless_key_press(key_space);
            frame();
        } else if (letter == 'w') {
            for (i64 left = 32; left > 0; --left) {
                frame();
            }
        } else {
            point place = places.at(letter);
            click(place.x, place.y, letter == 'r' ? mouse_right : mouse_left);
            frame();
        }
    }
};

// A case is a board, its seats and what is done there: a digit clicks that state, "a" and "b" a
// card, "d" the deck, "p" the pile or tape, "e" the sign that ends a turn, "o" nothing, "r" is the
// right button, "s" space, "w" waits until the stone has landed.
TEST_F(line_test, WhatIsDoneAndWhatIsRefused) {
    golden_check("game/lines", [](const std::string& given) {
        std::vector<std::string> words = words_of(given);
        game_make(boards.at(words[0]), words[1]);
        frame();
        for (char letter : words.size() > 2 ? words[2] : "") {
            act(letter);
        }
        return string_of({standing.text, standing.length});
    });
}

TEST_F(line_test, ThePointerShowsForAMomentThatAClickIsRefused) {
    game_make(boards.at("state"), "HH");
    act('1');
    EXPECT_FALSE(headless_refuses());
    act('0');
    EXPECT_TRUE(headless_refuses());
    for (i64 left = 20; left > 0; --left) {
        frame();
    }
    EXPECT_FALSE(headless_refuses());
    act('o');
    EXPECT_TRUE(headless_refuses());
    screens.title_menu_open = true;
    frame();
    EXPECT_FALSE(headless_refuses());
}

}  // namespace
