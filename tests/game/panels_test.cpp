#include "game/hand_panel.h"
#include "menus/player_setup.h"
#include "rules/cards.h"
#include "rules/selection.h"
#include "tests/program/program.h"

namespace {

// One state, nothing to move.
class panels_test : public program_test {
  protected:
    panels_test() {
        begin_game("HH");
        map_make(pushdown_machine, ".", {});
        pile_set(deck.cards, "Aa1 Aa1");
    }

    void hand_set(i64 count) {
        players[turn.current_player].hand.count = 0;
        for (i64 i = 0; i < count; ++i) {
            dyn_array_push(players[turn.current_player].hand, {1, 0, 2});
        }
    }
};

// The cards of the hand and their highlights.
std::string hand_lines() {
    return screen_lines([](std::string_view line) {
        return line.find(" -400 128 128 ") != line.npos || line.find(" -416 160 160 ") != line.npos;
    });
}

std::string thumb_line() {
    return lines_with(" -256 ");
}

// What the turn's state shows of cover, banner, counts, hand and goal.
std::string overlays_shown() {
    std::string shown;
    shown += lines_with("to continue").empty() ? "" : "cover ";
    shown += lines_with("to restart").empty() ? "" : "banner ";
    shown += lines_with(" card").empty() ? "" : "counts ";
    shown += hand_lines().empty() ? "" : "hand ";
    shown += is_drawn("\"num A or B %ex%a%ctly -2\" 0 -328") ? "goal " : "";
    return shown;
}

TEST_F(panels_test, PilesAndTapeAreDrawn) {
    const std::string back = "gradient1 -192 272 128 128\n";
    const std::string top =
        "white 64 272 128 128 (0 0.14 0 1)\ntriangle 64 272 128 128 (0 1 0 1)\n";
    const std::string row =
        "white -136 272 128 128 (0.14 0 0 1)\ncircle -136 272 128 128 (1 0 0 1)\n"
        "white -8 256 160 160 (1 0.3 0 0.5)\nwhite 8 272 128 128 (0 0 0.14 1)\n"
        "circle 8 272 128 128 (0 0 1 1)\nwhite 152 272 128 128 (0.14 0 0 1)\n"
        "circle 152 272 128 128 (1 0 0 1)\n";
    struct {
        i64 kind;
        const char *deck, *discard;
        std::string shown;
    } const rows[] = {
        {pushdown_machine, "Aa1 Aa1", "Aa2 Cb1", back + top},
        {pushdown_machine, "Aa1", "", back},
        {pushdown_machine, "", "", ""},
        {state_machine, "Aa1", "Aa1", ""},
        {turing_machine, "Aa1", "Aa1", row},
    };
    settings.tape_length = 2;  // centres the row, whatever the tape holds
    pile_set(tape, "Aa1 Ba1 Aa1");
    tape_head = 1;
    for (const auto& [kind, deck_cards, discarded, shown] : rows) {
        machine_kind = kind;
        pile_set(deck.cards, deck_cards);
        pile_set(discard_pile.cards, discarded);
        frame();
        EXPECT_EQ(screen_lines([](auto line) {
                      return line.find(" 272 128 128") != line.npos ||
                             line.find(" 256 160 160") != line.npos;
                  }),
                  shown);
    }
}

TEST_F(panels_test, StatusLines) {
    struct {
        i64 kind;
        u8 win_mode;
        const char *family, *win;
    } const rows[] = {
        {state_machine, 0, "state machine!", "immediate"},
        {pushdown_machine, 1, "pushdown machine!", "all accepting"},
        {turing_machine, 2, "turing machine!", "any accepting"},
        {state_machine, 255, "state machine!", ""},
    };
    seat_colour_set(players[0], 4);
    for (const auto& row : rows) {
        machine_kind = row.kind;
        settings.win_mode = row.win_mode;
        frame();
        EXPECT_TRUE(text_starts_at(row.family, 16, 784));
        EXPECT_TRUE(*row.win == '\0' || text_starts_at(row.win, 16, 752));
        EXPECT_TRUE(text_starts_at("turn:", 16, 720));
        std::string reds = lines_with("(1 0 0 1)");
        EXPECT_EQ(std::count(reds.begin(), reds.end(), '\n'), *row.win == '\0' ? 1 : 2);
        EXPECT_EQ(lines_with("(0.3 0 1 1)"),
                  "player -416 304 32 32 (0.3 0 1 1)\n\"turn:\" -463.5 320 (0.3 0 1 1)\n");
    }
}

TEST_F(panels_test, TheTurnDecidesWhatCoversTheBoard) {
    struct {
        i64 kind;
        const char* seats;
        bool revealed;
        u8 winner;
        const char* shown;
    } const rows[] = {
        {pushdown_machine, "HH", false, no_winner, "cover counts "},
        {pushdown_machine, "HH", true, no_winner, "hand "},
        {pushdown_machine, "H0", false, no_winner, "counts "},
        {pushdown_machine, "0HH", false, no_winner, "counts "},
        {pushdown_machine, "HH", false, 1, "banner counts "},
        {pushdown_machine, "H", true, 0, "banner hand "},
        {turing_machine, "HH", false, no_winner, "cover "},
        {turing_machine, "HH", true, no_winner, "hand goal "},
        {state_machine, "HH", false, no_winner, "cover "},
        {state_machine, "HH", true, no_winner, ""},
    };
    for (const auto& row : rows) {
        machine_kind = row.kind;
        seats_make(row.seats);
        hand_set(1);
        players[0].goal = {7, 0, -2, {0, 0, 1}, {1, 0, 1}};
        turn = {};
        turn.turn_revealed = row.revealed;
        turn.winner = row.winner;
        turn.think_timer = 0.4;
        frame();
        EXPECT_EQ(overlays_shown(), row.shown) << row.kind << row.seats;
    }
}

TEST_F(panels_test, CoverAndBannerCarryTheSeatsColour) {
    const char* const rows[][2] = {{"Red", "1 0 0"},      {"Blue", "0 0 1"},
                                   {"Green", "0 1 0"},    {"Yellow", "1 1 0"},
                                   {"Purple", "0.3 0 1"}, {"Orange", "1 0.3 0"}};
    machine_kind = turing_machine;
    players[1].goal = {4, 2, 3, {1, 0, 1}, {}};
    const std::string box = "white -400 -300 800 600 (0 0 0 0.9)\n";
    for (u8 i = 0; i < 6; ++i) {
        std::string tint = std::string(" (") + rows[i][1] + " 1)\n";
        std::string name = std::string("\"") + rows[i][0];
        auto notice = [](auto line) {
            return line.find("800 600") != line.npos || line.find("ress") != line.npos ||
                   line.find("size 512") != line.npos;
        };
        turn = {};
        seat_colour_set(players[0], i);
        frame();
        EXPECT_EQ(screen_lines(notice), box + name + "'s turn\" 0 0 size 512" + tint +
                                            "\"Press <space> to continue\" 0 -64" + tint);
        turn.winner = 1;
        seat_colour_set(players[1], i);
        frame();
        EXPECT_EQ(screen_lines(notice), box + name + " wins!\" 0 0 size 512" + tint +
                                            "\"Press <space> to restart or <esc> to quit\" 0 -200" +
                                            tint);
        EXPECT_TRUE(is_drawn("\"num B %at l%e%ast 3\" 0 -328")) << screen_text();
    }
}

TEST_F(panels_test, HandsAreCentredOrScrolled) {
    struct {
        i64 cards;
        const char *first, *last, *thumb;
    } const rows[] = {
        {0, "", "", ""},
        {1, "white -64 ", "white -64 ", ""},
        {5, "white -352 ", "white 224 ", ""},
        {7, "white -496 ", "white 368 ", ""},
        {8, "white -496 ", "white 512 ", "white -496 -256 866.25 16 (0.3 0 1 1)\n"},
        {12, "white -496 ", "white 1088 ", "white -496 -256 574.8 16 (0.3 0 1 1)\n"},
    };
    for (const auto& row : rows) {
        hand_set(row.cards);
        hand_row.hand_scroll = -1;
        frames(2);
        std::string lines = hand_lines();
        EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), row.cards);
        EXPECT_EQ(lines.find(row.first), 0U) << lines;
        EXPECT_NE(lines.rfind(row.last), std::string::npos) << lines;
        EXPECT_EQ(thumb_line(), row.thumb);
        EXPECT_EQ(hand_row.hand_scroll, 0);
    }
}

TEST_F(panels_test, CardsAreSelectedByClicks) {
    hand_set(3);  // from -208 in steps of 144
    struct {
        f64 x, y;
        i64 selected;
    } const rows[] = {
        {-208, -400, 0}, {-208, -400, no_card}, {-81, -273, 0}, {-80, -300, 0},      {-64, -300, 1},
        {-64, -401, 1},  {-64, -272, 1},        {80, -300, 2},  {80, -300, no_card},
    };
    for (const auto& row : rows) {
        click(row.x, row.y);
        EXPECT_EQ(selection.selected_card, row.selected) << row.x << ' ' << row.y;
    }
    click(-208, -400);
    EXPECT_EQ(hand_lines(),
              "white -224 -416 160 160 (1 0.3 0 0.5)\nwhite -208 -400 128 128 (0 0 0.14 1)\n"
              "white -224 -416 160 160 (1 1 1 0.3)\nwhite -64 -400 128 128 (0 0 0.14 1)\n"
              "white 80 -400 128 128 (0 0 0.14 1)\n");
    selection = {};
    machine_kind = turing_machine;
    click(-208, -400);
    EXPECT_EQ(selection.selected_card, no_card);
    EXPECT_EQ(lines_with("160 160"), "");
}

TEST_F(panels_test, OneCardATurnComesFromTheDeck) {
    struct {
        f64 x, y;
        const char* deck;
        bool drawn_before, hit;
    } const rows[] = {
        {-192, 272, "Aa1 Bb2", false, true}, {-65, 399, "Bb2", false, true},
        {-64, 272, "Bb2", false, false},     {-192, 272, "Bb2", true, false},
        {-192, 272, "", false, false},
    };
    discard_pile.cards.count = 0;
    for (const auto& row : rows) {
        hand_set(1);
        pile_set(deck.cards, row.deck);
        turn.card_drawn = row.drawn_before;
        click(row.x, row.y);
        EXPECT_EQ(pile_text(players[0].hand), row.hit ? "Ba2 Bb2" : "Ba2") << row.x << ' ' << row.y;
        EXPECT_EQ(is_drawn("white -208 256 160 160 (1 1 1 0.3)"), row.hit);
        EXPECT_EQ(turn.card_drawn, row.hit || row.drawn_before);
    }
}

TEST_F(panels_test, TheTurnEndsByItsSignAfterADraw) {
    seat_colour_set(players[0], 3);
    struct {
        f64 x;
        bool drawn;
        const char* deck;
        bool ends;
    } const rows[] = {
        {368, true, "Aa1", true}, {495, true, "Aa1", true},   {367, true, "Aa1", false},
        {368, true, "", false},   {368, false, "Aa1", false},
    };
    for (const auto& row : rows) {
        turn = {};
        turn.turn_revealed = true;
        turn.card_drawn = row.drawn;
        pile_set(deck.cards, row.deck);
        hand_set(1);
        click(row.x, 272);
        EXPECT_EQ(is_drawn("next_turn2 368 272 128 128 (1 1 0 1)"), row.drawn);
        EXPECT_EQ(is_drawn("white 352 256 160 160 (1 1 1 0.3)"), row.ends) << row.x;
        EXPECT_EQ(turn.current_player, row.ends ? 1 : 0);
        EXPECT_EQ(turn.card_drawn, row.drawn && !row.ends);
    }
}

TEST_F(panels_test, TheRowIsScrolled) {
    hand_set(12);  // row 1712, track 992
    constexpr f64 end = 1 - 992.0 / 1712;
    // 'h' only points, 'p' presses as well, 'r' releases.
    struct {
        f64 x, y;
        char act;
        f64 wheel, scroll;
        const char* tint;
    } const rows[] = {
        // clang-format off
        {-400, -250, 'h', 0, 0, "0.5 0.3 1 1"}, {-496, -256, 'p', 0, 0, "0.1 0 0.5 1"},
        {-396, 300, 'h', 0, 100.0 / 992, "0.1 0 0.5 1"},  // anywhere while the button is held
        {500, 0, 'h', 0, end, "0.1 0 0.5 1"}, {400, -250, 'r', 0, end, "0.3 0 1 1"},
        {400, -250, 'h', 0, end, "0.5 0.3 1 1"}, {0, -300, 'h', 90, 0, "0.3 0 1 1"},
        // The thumb's box, then the wheel over the band and above it.
        {78, -241, 'h', 0, 0, "0.5 0.3 1 1"}, {78, -241, 'p', 0, 0, "0.1 0 0.5 1"},
        {78, -241, 'r', 0, 0, "0.3 0 1 1"}, {79, -250, 'p', 0, 0, "0.3 0 1 1"},
        {0, -240, 'p', 0, 0, "0.3 0 1 1"}, {0, -300, 'r', -1, 0.03125, "0.3 0 1 1"},
        {0, -241, 'h', -2, 0.09375, "0.5 0.3 1 1"}, {0, -240, 'h', -1, 0.09375, "0.3 0 1 1"},
        {0, -300, 'h', 1, 0.0625, "0.3 0 1 1"}, {0, -300, 'h', -90, end, "0.3 0 1 1"},
        // clang-format on
    };
    for (const auto& row : rows) {
        point_at(row.x, row.y);
        row.act == 'p' ? headless_mouse_press(mouse_left)
                       : headless_mouse_release(row.act == 'r' ? mouse_left : mouse_right);
        headless_wheel(row.wheel);
        frame();
        EXPECT_NEAR(hand_row.hand_scroll, row.scroll, 1e-12) << row.x << ' ' << row.y;
        EXPECT_TRUE(thumb_line().ends_with(std::string(" -256 574.8 16 (") + row.tint + ")\n"))
            << row.x << ' ' << row.y << thumb_line();
    }
    frame();
    EXPECT_EQ(thumb_line().find("white -78.8 "), 0U);
    EXPECT_EQ(hand_lines().find("white -1216 "), 0U) << hand_lines();
}

TEST_F(panels_test, CardCountsStandInColumnsOfFour) {
    const char* const rows[][2] = {
        {"0H", "\"0 cards!\" 0 -264 (1 0 0 1)\n\"1 card!\" 0 -296 (0 0 1 1)\n"},
        {"0HHHHH",
         "\"0 cards!\" -128 -264 (1 0 0 1)\n\"1 card!\" -128 -296 (0 0 1 1)\n"
         "\"2 cards\" -128 -328 (0 1 0 1)\n\"3 cards\" -128 -360 (1 1 0 1)\n"
         "\"4 cards\" 128 -264 (0.3 0 1 1)\n\"5 cards\" 128 -296 (1 0.3 0 1)\n"},
    };
    for (const auto& [seats, counts] : rows) {
        seats_make(seats);
        turn = {};
        turn.think_timer = 0.4;
        for (i64 i = 0; i < players.count; ++i) {
            seat_colour_set(players[i], i);
            players[i].hand = {};
            pile_set(
                players[i].hand,
                std::string_view("Aa1 Aa1 Aa1 Aa1 Aa1").substr(0, 4 * static_cast<std::size_t>(i)));
        }
        frame();
        EXPECT_EQ(lines_with(" card"), counts);
    }
}

}  // namespace
