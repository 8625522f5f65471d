// A player who does anything in the editor, in any order and at once.

#include <random>

#include "maps/reader.h"
#include "program/frame.h"
#include "render/camera.h"
#include "rules/screens.h"
#include "tests/support/screen.h"

namespace {

constexpr i64 input_count = 12'000;

// Every control of the editor, its dialogs, the map list and the title menu.
// clang-format off
constexpr point controls[] = {
    {368, 368}, {368, 336}, {368, 304}, {96, 368}, {96, 336}, {96, 304}, {-352, 384}, {-256, 352},
    {-280, -296}, {280, -296}, {-280, -328}, {280, -328}, {-280, -360}, {280, -360}, {0, -144},
    {-224, -144}, {-256, 176}, {256, 176}, {-256, 112}, {256, 80}, {256, 48}, {-160, 304},
    {160, 304}, {0, -336}, {304, -336}};
// clang-format on
constexpr u32 editing_keys[] = {key_1, key_2, key_2, key_3, key_i,      key_j,
                                key_k, key_l, key_u, key_o, key_delete, key_enter};
constexpr u32 lasting_keys[] = {key_shift, key_alt, key_a, key_d, key_w, key_s, key_q, key_e};

class editor_walk_test : public screen_test {
  protected:
    editor_walk_test() {
        file_put("resources/pushdown_maps.txt", "good maps/good\nbroken maps/broken\nnone none\n");
        file_put("resources/turing_maps.txt", "good maps/good\nbroken maps/broken\n");
        file_put("maps/good", file_get(QUORREL_SOURCE_DIR "/resources/maps/turing/first_tape"));
        file_put("maps/broken",
                 "map 1e9 -7 .3\nwin 77\ndeck -3 99 7 0\nhand 9223372036854775807\ntape -1\n"
                 "goal 200 99 9223372036854775807 255 255 255\nstone 9\nstone 65535\n. 0 0\n"
                 "* 1 -1\n=> 0 9 -32768 -0.00001 0 \"~(\"\n=> 1 1 32767\n=> 0 1 0 0 0 \"\n\n");
        begin();
        headless_record(false);
    }

    i64 below(i64 limit) { return static_cast<i64>(random() % static_cast<u64>(limit)); }

    template <typename value, std::size_t count>
    value any_of(const value (&values)[count]) {
        return values[below(i64{count})];
    }

    void press(point place, u32 button = mouse_left) {
        point_at(place.x, place.y);
        headless_mouse_press(button);
        headless_mouse_release(button);
    }

    void input() {
        i64 kind = below(160);
        // Large maps take long to draw and show nothing new: they are made smaller again.
        bool large = game_map.states.count > 8 || game_map.transitions.count > 16;
        if (kind < 60) {
            headless_key_press(large && below(2) == 0 ? u32{key_delete} : any_of(editing_keys));
        } else if (kind < 90 && named_state_count() > 0) {
            world_point centre = state_centre(below(named_state_count()));
            press({(centre.x - camera.x) * camera.zoom, (centre.y - camera.y) * camera.zoom});
        } else if (kind < 115) {
            press(any_of(controls));
        } else if (kind < 125) {
            press({static_cast<f64>(below(1024) - 512), static_cast<f64>(below(832) - 416)},
                  below(2) == 0 ? mouse_left : mouse_right);
        } else if (kind < 135) {
            below(2) == 0 ? headless_key_hold(any_of(lasting_keys))
                          : headless_key_release(any_of(lasting_keys));
            headless_key_release(key_ctrl);
        } else if (kind < 158) {
            headless_wheel(static_cast<f64>(below(3) - 1));
            headless_key_press(static_cast<u32>(below(key_count)));
        } else {
            headless_key_hold(key_ctrl);
            headless_key_press(kind == 158 ? key_s : key_o);
        }
    }

    static void expect_reads_back() {
        std::string texts[2];
        for (std::string& text : texts) {
            text = map_text();
            file_put("map", text);
            map_load("map");
        }
        ASSERT_EQ(texts[0], texts[1]);
    }

    std::mt19937_64 random{20'240'501};
};

TEST_F(editor_walk_test, AnythingInAnyOrder) {
    std::string output = output_of([&] {
        for (i64 inputs = 0; inputs < input_count && !HasFatalFailure(); ++inputs) {
            if (screens.editor_open) {
                input();
            } else if (screens.title_menu_open) {
                press(below(3) == 0 ? point{160, 304} : point{304, -336});
            } else {
                headless_key_press(key_escape);
            }
            program_frame();
            if (below(500) == 0) {
                expect_reads_back();
            }
        }
    });
    ASSERT_FALSE(HasFatalFailure()) << output;
    for (const char* told : {"saving map ", "failed to save map: ", "failed to load map: none\n"}) {
        EXPECT_NE(output.find(told), std::string::npos) << told;
    }
}

}  // namespace
