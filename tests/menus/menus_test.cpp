#include <gmock/gmock.h>

#include "maps/catalogue.h"
#include "rules/cards.h"
#include "rules/screens.h"
#include "tests/program/program.h"

namespace {

class menus_test : public program_test {
  protected:
    menus_test() {
        file_put("resources/pushdown_maps.txt", "near maps/near\nfar maps/far\n");
        file_put("maps/near", "map 0 0 100\n. 0 0\n");
        file_put("maps/far",
                 "map 0 0 100\nstone 0\nstone 0\nstone 1\nstone 7\n. -6 0\n* 6 0\n"
                 "=> 0 1 2 10 20 \"A\"\n=> 1 1 90 0 30 \"x\"\n=> 1 7 0 0 0 \"y\"\n");
        begin();
    }

    void map_list_open(i64 kind) {
        machine_kind = kind;
        press_button("Play Game");
        press_button("OK");
        frame();
    }
};

// Kind, strength, colour and number of cards of every seat.
std::string seats_text() {
    std::string text;
    for (const player& seat : players) {
        text += seat.is_computer ? "c" : "h";
        text += std::to_string(seat.strength) + std::to_string(seat.colour_index) +
                std::to_string(seat.hand.count) + " ";
    }
    return text;
}

TEST_F(menus_test, WhatIsDrawn) {
    struct {
        std::vector<point> clicks;
        const char* text;
    } const rows[] = {
        {{},  // the title menu
         "white -400 -400 800 800 (0 0 0 0.8)\n"
         "pushdown_machine -256.26 -279.5 512.52 526.99\n[<] -160 304 64 64\n[>] 160 304 64 64\n"
         "[Play Game] 0 -336 256 64\n[Quit] -304 -336 128 64\n[Editor] 304 -336 128 64\n"
         "\"Game Mode\" 0 352\n\"Pushdown\" 0 304\n"},
        {{{0, -336}, {-160, 320}, {-256, 128}, {256, 128}},  // the set-up with a human and an ai
         "white -400 -416 800 832 (0 0 0 0.8)\n"
         "player -128 192 64 64 (1 0 0 1)\nplayer -128 96 64 64 (0 0 1 1)\n"
         "[OK] 0 -352 256 64\n[Back] -304 -352 128 64\n[<] -160 320 64 64\n[>] 160 320 64 64\n"
         "[human] -256 224 78 64\n[<] -160 224 64 64\n[>] -32 224 64 64\n"
         "[ai] -256 128 78 64\n[<] -160 128 64 64\n[>] -32 128 64 64\n"
         "[<] 64 128 64 64\n[>] 256 128 64 64\n"
         "\"Number of players\" 0 368\n\"2\" 0 320\n\"normal\" 160 128\n"},
        // The map list: the second map spans 1200 units and is shown at half its size, without
        // what names missing states.
        {{{0, -352}, {160, 304}},
         "white -400 -400 800 800 (0 0 0 0.8)\n"
         "white -300 7 584 2 (0.9 0.8 0.8 1)\ntriangle 278 14 12 -12 (0.9 0.8 0.8 1)\n"
         "self_arrow 299.25 -25 -45 50 (0.9 0.8 0.8 1)\n"
         "circle -316 -16 32 32 (0.08 0.08 0.15 1)\ncircle 284 -16 32 32 (0.4 0.7 1 1)\n"
         "player -312 -12 24 24 (0.2 0.4 1 1)\nplayer -312 -8 24 24 (0.2 0.4 1 1)\n"
         "player 288 -12 24 24 (0.2 0.4 1 1)\n"
         "[<] -160 304 64 64\n[>] 160 304 64 64\n[Play] 0 -336 256 64\n[Back] -304 -336 128 64\n"
         "\"Map\" 0 352\n\"far\" 0 304\n\"A\" 5 10 size 128 (1 0 0 1)\n\"x\" 300 15 size 128\n"},
    };
    for (const auto& row : rows) {
        for (point place : row.clicks) {
            click(place.x, place.y);
        }
        point_at(0, 0);
        frame();
        EXPECT_EQ(screen_text(), row.text);
    }
}

TEST_F(menus_test, FamiliesGoRoundAboveATurningPicture) {
    struct {
        const char *button, *name, *picture;
    } const rows[] = {
        {">", "\"Turing\"", "turing_m"}, {">", "\"State\"", "state_m"},
        {"<", "\"Turing\"", "turing_m"}, {"<", "\"Pushdown\"", "pushdown_m"},
        {"<", "\"State\"", "state_m"},
    };
    frames(45);
    EXPECT_TRUE(is_drawn("pushdown_machine -263.5 -272 527 512")) << screen_text();
    for (const auto& row : rows) {
        press_button(row.button);
        EXPECT_EQ(lines_with(row.name), std::string(row.name) + " 0 304\n");
        EXPECT_EQ(lines_with("_machine").find(row.picture), 0U) << screen_text();
    }
}

TEST_F(menus_test, ButtonsLeadOn) {
    const char* const rows[][3] = {
        {"t", "Play Game", "s"}, {"t", "Editor", "e"}, {"s", "OK", "l"},    {"s", "Back", "t"},
        {"l", "Back", "s"},      {"l", "Play", ""},    {"le", "Edit", "e"},
    };
    seats_make("H");
    for (const auto& [from, button, to] : rows) {
        screens_show(from);
        press_button(button);
        EXPECT_EQ(screens_shown(), to) << from << button;
    }
    screens_show("t");
    click(-304, -336);  // "Quit"
    EXPECT_FALSE(frame());
}

TEST_F(menus_test, TheEditorStartsWithAnEmptyMap) {
    file_put("maps/near",
             "map 3 4 5\nwin 2\ndeck 9 1 1 1\nhand 7\ntape 2\nstone 0\ngoal 1\n. 0 0\n");
    pile_set(deck.cards, "Aa1");
    pile_set(discard_pile.cards, "Aa1");
    press_button("Editor");
    EXPECT_EQ(game_map.states.count + game_map.transitions.count + stones.count + goals.count, 0);
    EXPECT_EQ(deck.cards.count + discard_pile.cards.count, 0);
    EXPECT_DOUBLE_EQ(game_map.origin_x, 3);
    EXPECT_EQ(game_map.scale, 1);
    EXPECT_EQ(settings.hand_size, 7);
    i64 fresh[] = {settings.deck_copies,  settings.deck_colours, settings.deck_shapes,
                   settings.deck_numbers, settings.tape_length,  settings.win_mode};
    EXPECT_THAT(fresh, testing::ElementsAre(1, 4, 4, 4, 4, 0));
    EXPECT_EQ(current_catalogue, &catalogues[pushdown_machine]);
}

TEST_F(menus_test, SeatsAreChosen) {
    press_button("Play Game");
    frame();
    EXPECT_EQ(seats_text(), "h000 h010 h020 ");
    pile_set(players[0].hand, "Aa1");
    pile_set(players[2].hand, "Aa1");
    players[2].goal = {4, 1, 7, {1, 1, 2}, {1, 1, 2}};
    struct {
        f64 x, y;
        i64 times;
        const char* seats;
    } const rows[] = {
        // clang-format off
        // Colours go round, strengths do not and a human has none; a seat that returns is new.
        {-160, 224, 1, "h051 h010 h021 "}, {-32, 224, 1, "h001 h010 h021 "},
        {-32, 32, 2, "h001 h010 h041 "},   {-256, 32, 1, "h001 h010 c041 "},
        {256, 32, 4, "h001 h010 c241 "},   {64, 32, 1, "h001 h010 c141 "},
        {64, 32, 3, "h001 h010 c041 "},    {256, 128, 1, "h001 h010 c041 "},
        {-160, 320, 1, "h001 h010 "},      {160, 320, 2, "h001 h010 h020 h030 "},
        {160, 320, 5, "h001 h010 h020 h030 h040 h050 "}, {-160, 320, 9, "h001 "},
        // clang-format on
    };
    for (const auto& row : rows) {
        for (i64 i = 0; i < row.times; ++i) {
            click(row.x, row.y);
        }
        EXPECT_EQ(seats_text(), row.seats) << row.x << ' ' << row.y;
        EXPECT_TRUE(players.count != 4 || players[2].goal.target == 0);
    }
}

TEST_F(menus_test, MapsAreChosenReadAnewAndDeleted) {
    struct {
        const char* button;
        i64 selected, states;
    } const rows[] = {{">", 1, 2}, {">", 1, 2}, {"<", 0, 1}, {"<", 0, 1}};
    map_list_open(pushdown_machine);
    for (const auto& row : rows) {
        map_clear();
        press_button(row.button);
        EXPECT_EQ(selected_entry, row.selected);
        EXPECT_EQ(game_map.states.count, row.states);
    }
    screens.editor_open = true;
    frame();
    EXPECT_TRUE(is_drawn("[Delete] 304 -336 128 64")) << screen_text();
    press_button("Delete");
    EXPECT_EQ(file_get("resources/pushdown_maps.txt"), "far maps/far\n");
    EXPECT_FALSE(std::filesystem::exists("maps/near"));
    EXPECT_EQ(game_map.states.count, 2);
    press_button("Delete");
    frame();
    EXPECT_EQ(lines_with("["), "[Edit] 0 -336 256 64\n");
}

TEST_F(menus_test, AnEmptyCatalogueOffersTheLoadedMap) {
    map_list_open(turing_machine);
    EXPECT_EQ(lines_with("["), "[Play] 0 -336 256 64\n[Back] -304 -336 128 64\n");
    EXPECT_EQ(lines_with("\"Map\""), "");
    press_button("Play");
    EXPECT_EQ(screens_shown(), "");
    EXPECT_EQ(game_map.states.count, 5);  // the title map
    EXPECT_EQ(stones.count, 2);
}

TEST_F(menus_test, PreviewFitsItsRoom) {
    const char* const rows[][2] = {
        {"map 0 0 1\n. 300 -160\n", "circle 268 -192 64 64"},
        {"map 0 0 1\n. 300 0\n. -900 0\n", "circle 89.33 -10.67 21.33 21.33"},
        {"map 0 0 1\n. 0 -240\n", "circle -21.33 -181.33 42.67 42.67"},
        {"map 0 0 1\n. 1200 320\n", "circle 292 72 16 16"},
        {"map 0 0 1\n. 600 640\n", "circle 142 152 16 16"},
        {"map 100 -50 2\n. 100 -15\n", "circle 268 -112 64 64"},
    };
    map_list_open(pushdown_machine);
    for (const auto& [map, first_state] : rows) {
        file_put("maps/near", map);
        press_button("<");
        EXPECT_EQ(lines_with("circle").find(first_state), 0U) << screen_text();
    }
}

TEST_F(menus_test, PreviewStacksStonesOnAnyState) {
    std::string map = "map 0 0 1\n";
    for (i64 i = 0; i < 300; ++i) {
        map += ". 0 0\n";
    }
    file_put("maps/near", map + "stone 299\nstone 43\nstone 299\n");
    map_list_open(pushdown_machine);
    EXPECT_TRUE(lines_with("player").ends_with("player -24 -16 48 48 (0.2 0.4 1 1)\n"));
}

TEST_F(menus_test, EverythingStaysRelativeToTheCentre) {
    headless_set_screen(641, 480);
    for (const char* menu : {"t", "s", "l"}) {
        std::string shown[2];
        for (i64 full = 0; full < 2; ++full) {
            screens_show(menu);
            point_at(0, -100);
            frame();
            shown[full] = lines_with("[") + lines_with("\"") + lines_with("white");
            key(key_f11);
        }
        EXPECT_EQ(shown[0], shown[1]);
    }
}

}  // namespace
