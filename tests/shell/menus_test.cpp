#include <gmock/gmock.h>

#include "maps/catalogue.h"
#include "rules/cards.h"
#include "rules/screens.h"
#include "shell/title_menu.h"
#include "tests/shell/program.h"

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

    void map_list_open(i64 kind = pushdown_machine) {
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
        text += (seat.is_computer ? "c" : "h") + std::to_string(seat.strength) +
                std::to_string(seat.colour_index) + std::to_string(seat.hand.count) + " ";
    }
    return text;
}

TEST_F(menus_test, TitleMenu) {
    frame();
    EXPECT_EQ(screen_text(),
              "white -400 -400 800 800 (0 0 0 0.8)\npushdown_machine -256.26 -279.5 512.52 526.99\n"
              "[<] -160 304 64 64\n[>] 160 304 64 64\n[Play Game] 0 -336 256 64\n"
              "[Quit] -304 -336 128 64\n[Editor] 304 -336 128 64\n"
              "\"Game Mode\" 0 352\n\"Pushdown\" 0 304\n");
    frames(44);
    EXPECT_TRUE(is_drawn("pushdown_machine -263.5 -272 527 512")) << screen_text();
}

TEST_F(menus_test, FamiliesGoRound) {
    const struct {
        const char *button, *name, *picture;
        // clang-format off
    } rows[] = {
        {">", "\"Turing\"", "turing_m"}, {">", "\"State\"", "state_m"}, {"<", "\"Turing\"", "turing_m"},
        {"<", "\"Pushdown\"", "pushdown_m"}, {"<", "\"State\"", "state_m"},
    };
    // clang-format on
    for (const auto& row : rows) {
        press_button(row.button);
        EXPECT_EQ(lines_with(row.name), std::string(row.name) + " 0 304\n");
        EXPECT_EQ(lines_with("_machine").find(row.picture), 0U) << screen_text();
    }
}

TEST_F(menus_test, ButtonsLeadOn) {
    const struct {
        const char *from, *button, *to;
        // clang-format off
    } rows[] = {
        {"title ", "Play Game", "setup "}, {"title ", "Editor", "editor "},
        {"setup ", "OK", "list "}, {"setup ", "Back", "title "}, {"list ", "Back", "setup "},
        {"list ", "Play", ""}, {"list editor ", "Edit", "editor "},
    };
    // clang-format on
    seats_make("H");
    for (const auto& row : rows) {
        screens_set(row.from);
        press_button(row.button);
        EXPECT_EQ(screens_open(), row.to) << row.from << row.button;
    }
    screens_set("title ");
    frame();
    headless_mouse_press(mouse_left);
    point_at(-304, -336);
    EXPECT_FALSE(frame());  // "Quit"
}

TEST_F(menus_test, TheEditorStartsWithAnEmptyMap) {
    file_put("maps/near",
             "map 3 4 5\nwin 2\ndeck 9 1 1 1\nhand 7\ntape 2\nstone 0\ngoal 1\n. 0 0\n");
    pile_set(deck.cards, "Aa1");
    pile_set(discard_pile.cards, "Aa1");
    press_button("Editor");
    EXPECT_EQ(game_map.states.count + game_map.transitions.count + stones.count + goals.count, 0);
    EXPECT_EQ(deck.cards.count + discard_pile.cards.count, 0);
    EXPECT_EQ(game_map.scale, 1);
    EXPECT_DOUBLE_EQ(game_map.origin_x, 3);
    i64 numbers[] = {settings.deck_copies,  settings.deck_colours, settings.deck_shapes,
                     settings.deck_numbers, settings.tape_length,  settings.win_mode,
                     settings.hand_size};
    EXPECT_THAT(numbers, testing::ElementsAre(1, 4, 4, 4, 4, 0, 7));
}

TEST_F(menus_test, PlayerSetup) {
    press_button("Play Game");
    click(-160, 320);
    click(-256, 128);
    click(256, 128);
    point_at(0, 0);
    frame();
    EXPECT_EQ(screen_text(),
              "white -400 -416 800 832 (0 0 0 0.8)\n"
              "player -128 192 64 64 (1 0 0 1)\nplayer -128 96 64 64 (0 0 1 1)\n"
              "[OK] 0 -352 256 64\n[Back] -304 -352 128 64\n[<] -160 320 64 64\n[>] 160 320 64 64\n"
              "[human] -256 224 78 64\n[<] -160 224 64 64\n[>] -32 224 64 64\n"
              "[ai] -256 128 78 64\n[<] -160 128 64 64\n[>] -32 128 64 64\n"
              "[<] 64 128 64 64\n[>] 256 128 64 64\n"
              "\"Number of players\" 0 368\n\"2\" 0 320\n\"normal\" 160 128\n");
}

TEST_F(menus_test, SeatsAreChosen) {
    const struct {
        f64 x, y;
        i64 times;
        const char* seats;
        // clang-format off
    } rows[] = {
        {0, 0, 1, "h000 h010 h020 "},
        {-160, 224, 1, "h050 h010 h020 "}, {-32, 224, 1, "h000 h010 h020 "},  // colours go round
        {-256, 32, 1, "h000 h010 c020 "}, {256, 32, 4, "h000 h010 c220 "},  // strengths do not
        {64, 32, 1, "h000 h010 c120 "}, {64, 32, 3, "h000 h010 c020 "},
        {256, 128, 1, "h000 h010 c020 "},  // a human has none
        {-160, 320, 1, "h000 h010 "}, {160, 320, 2, "h000 h010 h020 h030 "},  // come back as new
        {160, 320, 5, "h000 h010 h020 h030 h040 h050 "}, {-160, 320, 9, "h000 "},
    };
    // clang-format on
    press_button("Play Game");
    for (const auto& row : rows) {
        for (i64 i = 0; i < row.times; ++i) {
            click(row.x, row.y);
        }
        EXPECT_EQ(seats_text(), row.seats) << row.x << ' ' << row.y;
    }
}

TEST_F(menus_test, SeatsThatComeBackAreEmptyHanded) {
    press_button("Play Game");
    frame();
    EXPECT_EQ(players.capacity, 3);
    pile_set(players[0].hand, "Aa1");
    pile_set(players[2].hand, "Aa1");
    players[2].own_goal = {4, 1, 7, {1, 1, 2}, {1, 1, 2}};
    click(-160, 320);
    click(160, 320);
    click(160, 320);
    EXPECT_EQ(seats_text(), "h001 h010 h020 h030 ");
    EXPECT_EQ(players.capacity, 4);
    EXPECT_EQ(players[2].own_goal.target, 0);
    EXPECT_EQ(players[2].own_goal.card_b, (card{0, 0, 1}));
}

TEST_F(menus_test, MapListWithPreview) {
    map_list_open();
    click(160, 304);
    point_at(0, 0);
    frame();
    // Missing states leave no trace; the map spans 1200 units and is shown at half its size.
    EXPECT_EQ(screen_text(),
              "white -400 -400 800 800 (0 0 0 0.8)\nwhite -300 7 584 2 (0.9 0.8 0.8 1)\n"
              "triangle 278 14 12 -12 (0.9 0.8 0.8 1)\n"
              "self_arrow 299.25 -25 -45 50 (0.9 0.8 0.8 1)\n"
              "circle -316 -16 32 32 (0.08 0.08 0.15 1)\ncircle 284 -16 32 32 (0.4 0.7 1 1)\n"
              "player -312 -12 24 24 (0.2 0.4 1 1)\nplayer -312 -8 24 24 (0.2 0.4 1 1)\n"
              "player 288 -12 24 24 (0.2 0.4 1 1)\n[<] -160 304 64 64\n[>] 160 304 64 64\n"
              "[Play] 0 -336 256 64\n[Back] -304 -336 128 64\n\"Map\" 0 352\n\"far\" 0 304\n"
              "\"A\" 5 10 size 128 (1 0 0 1)\n\"x\" 300 15 size 128\n");
}

TEST_F(menus_test, MapsAreChosenAndReadAnew) {
    map_list_open();
    const struct {
        const char* button;
        i64 selected, states;
    } rows[] = {{">", 1, 2}, {">", 1, 2}, {"<", 0, 1}, {"<", 0, 1}};
    for (const auto& row : rows) {
        map_clear();
        press_button(row.button);
        EXPECT_EQ(selected_entry, row.selected);
        EXPECT_EQ(game_map.states.count, row.states);
    }
}

TEST_F(menus_test, AnEmptyCatalogueOffersTheLoadedMap) {
    map_list_open(turing_machine);
    EXPECT_EQ(lines_with("["), "[Play] 0 -336 256 64\n[Back] -304 -336 128 64\n");
    EXPECT_EQ(lines_with("\"Map\""), "");
    press_button("Play");
    EXPECT_EQ(game_map.states.count, 5);  // the title map
    EXPECT_EQ(stones.count, 2);
}

TEST_F(menus_test, TheEditorsListDeletesMaps) {
    map_list_open();
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

TEST_F(menus_test, PreviewFitsItsRoom) {
    const struct {
        const char *map, *first_state;
        // clang-format off
    } rows[] = {
        {"map 0 0 1\n. 300 -160\n", "circle 268 -192 64 64"},
        {"map 0 0 1\n. 300 0\n. -900 0\n", "circle 89.33 -10.67 21.33 21.33"},
        {"map 0 0 1\n. 0 -320\n", "circle -16 -176 32 32"},
        {"map 0 0 1\n. 1200 320\n", "circle 292 72 16 16"},
        {"map 0 0 1\n. 600 640\n", "circle 142 152 16 16"},
        {"map 100 -50 2\n. 100 -15\n", "circle 268 -112 64 64"},
        {"map 600 0 2\n. 0 0\n", "circle 284 -16 32 32"},
    };
    // clang-format on
    map_list_open();
    for (const auto& row : rows) {
        file_put("maps/near", row.map);
        press_button("<");
        EXPECT_EQ(lines_with("circle").find(row.first_state), 0U) << screen_text();
    }
}

TEST_F(menus_test, PreviewStacksStonesOnAnyState) {
    std::string map = "map 0 0 1\nstone 299\nstone 43\nstone 299\n";
    for (i64 i = 0; i < 300; ++i) {
        map += ". 0 0\n";
    }
    file_put("maps/near", map);
    map_list_open();
    EXPECT_EQ(lines_with("player"),
              "player -24 -24 48 48 (0.2 0.4 1 1)\nplayer -24 -24 48 48 (0.2 0.4 1 1)\n"
              "player -24 -16 48 48 (0.2 0.4 1 1)\n");
}

TEST_F(menus_test, EverythingStaysRelativeToTheCentre) {
    headless_set_screen(641, 480);
    for (const char* menu : {"title ", "setup ", "list "}) {
        screens_set(menu);
        title_picture_angle = 0;
        point_at(0, -336);
        frame();
        std::string windowed = screen_text();
        title_picture_angle = 0;
        headless_mouse_move(320.5, 240 + 336);
        key(key_f11);
        EXPECT_EQ(screen_text(), windowed);
        key(key_f11);
    }
}

}  // namespace
