// What scenarios do not show of walking: places that lie in each other's way, the mouse beside the
// keys, and cards beyond the window.

#include "render/walk.h"

#include <random>

#include "platform/common/input_state.h"
#include "render/renderer.h"
#include "render/view.h"
#include "rules/cards.h"
#include "rules/seats.h"
#include "shown/screens.h"
#include "shown/selection.h"
#include "tests/support/screen.h"
#include "tests/support/walker.h"

namespace {

class walk_test : public screen_test {
  protected:
    walk_test() {
        begin();
        screens.title_menu_open = false;
        seats_make("HH");
        turn.turn_revealed = true;
        map_make(pushdown_machine, "", {});
    }
};

void press(u32 key) {
    headless_key_press(key);
    frame();
    frame();
}

void state_put(f64 x, f64 y) {
    map_add_state(x / game_map.scale, y / game_map.scale, 0);
}

TEST_F(walk_test, PlacesThatStandInTheWayDoNotHideAnother) {
    for (f64 k = 0; k < 8; ++k) {
        state_put(70 - 10 * k, 10 * k);
    }
    state_put(-30, -20);
    EXPECT_EQ(places_not_reached(), "");
    std::mt19937 random(7);
    std::uniform_int_distribution<int> places(-20, 20);
    for (i64 round = 0; round < 3; ++round) {
        game_map.states.count = 0;
        for (i64 i = 0; i < 25; ++i) {
            state_put(24 * places(random), 12 * places(random));
        }
        EXPECT_EQ(places_not_reached(), "") << round;
    }
}

TEST_F(walk_test, AnArrowLeadsBackOverWhatIsNearer) {
    state_put(-200, 0);
    state_put(0, 180);
    state_put(60, 0);
    point_at(-200, 0);
    frame();
    for (u32 key : {key_right, key_left, key_right}) {
        press(key);
    }
    EXPECT_EQ(pointer_read().x, 512 + 60);
    for (u32 key : {key_up, key_down, key_left}) {
        press(key);
    }
    EXPECT_EQ(pointer_read().x, 512 - 200);
}

TEST_F(walk_test, TheMouseWins) {
    state_put(0, 0);
    state_put(128, 0);
    point_at(0, 0);
    frame();
    press(key_right);
    EXPECT_EQ(pointer_read().x, 512 + 128);
    point_at(0, 0);  // told of again, at rest
    frame();
    EXPECT_TRUE(input_mouse_is_brought());
    headless_mouse_press(mouse_left);
    frame();
    EXPECT_EQ(selection.selected_state, 0);
    press(key_enter);  // the button is held
    EXPECT_EQ(selection.target_state, no_index);
    headless_mouse_release(mouse_left);
    press(key_right);
    press(key_enter);
    EXPECT_EQ(selection.target_state, 1);
    point_at(1, 0);
    frame();
    EXPECT_EQ(pointer_read().x, 512 + 1);
}

TEST_F(walk_test, CardsBeyondTheWindowArePulledIn) {
    for (i64 i = 0; i < 20; ++i) {
        dyn_array_push(players[0].hand, card{0, 0, 1});
    }
    point_at(-400, -330);
    frame();
    for (auto [key, last] : {std::pair{key_right, 19}, std::pair{key_left, 0}}) {
        for (i64 left = 25; left > 0; --left) {
            press(key);
        }
        press(key_enter);
        EXPECT_EQ(selection.selected_card, last);
        EXPECT_TRUE(pointer_read().inside);
    }
}

}  // namespace
