// The program's start, its end and what may go wrong on the way.

#include "program/frame.h"

#include <unistd.h>

#include <algorithm>

#include "base/tidings.h"
#include "maps/catalogue.h"
#include "maps/map_work.h"
#include "rules/cards.h"
#include "shown/screens.h"
#include "tests/support/screen.h"

namespace {

using frame_test = screen_test;

i64 live_objects() {
    i64 count = 0;
    for (gpu_op create : {gpu_op::texture_create, gpu_op::buffer_create, gpu_op::shader_create,
                          gpu_op::vertex_array_create, gpu_op::frame_buffer_create}) {
        count += headless_live_objects(create);
    }
    return count;
}

// The arguments of the last call of that kind.
std::vector<i64> numbers_of(gpu_op op) {
    std::vector<i64> numbers;
    for (const gpu_call& call : headless_calls()) {
        numbers = call.op == op ? call.numbers : numbers;
    }
    return numbers;
}

TEST_F(frame_test, StartUp) {
    headless_set_time(12345);
    file_put("resources/turing_maps.txt", "a maps/a\n");
    EXPECT_EQ(output_of([&] { begin(); }), "");
    // Nineteen pictures, the font, the target's texture; two buffers and their array, two programs,
    // the target.
    EXPECT_EQ(live_objects(), 19 + 2 + 2 + 1 + 2 + 1);
    random_state seeded = random_generator;
    random_seed(12345);
    EXPECT_EQ(random_generator, seeded);
    // What the renderer loaded was given back before the title map and the catalogues came.
    EXPECT_LT(arenas[arena_persistent].offset, 4096);
    EXPECT_EQ(catalogues[turing_machine].count, 1);
    EXPECT_EQ(numbers_of(gpu_op::pipeline_cull_enable), std::vector<i64>{1});
    EXPECT_EQ(numbers_of(gpu_op::pipeline_cull_orientation), std::vector<i64>{1});
    EXPECT_EQ(numbers_of(gpu_op::pipeline_blend_factor), (std::vector<i64>{3, 9}));
    arenas[arena_frame].offset = 1 << 20;
    frame();
    EXPECT_LT(arenas[arena_frame].offset, 1 << 20);
}

TEST_F(frame_test, EscapeGoesBackFromEveryScreen) {
    // The flags of title, set-up, list and editor.
    const std::pair<screen_flags, screen_flags> rows[] = {
        {{true, false, false, false, false}, {true, false, false, false, false}},
        {{false, false, true, false, false}, {false, true, false, false, false}},
        {{false, false, true, true, false}, {false, false, false, true, false}},
        {{false, false, false, true, true}, {true, false, false, false, false}},
        {{false, true, false, false, false}, {true, false, false, false, false}},
        {{false, false, false, false, false}, {false, true, false, false, false}}};
    begin();
    seats_make("HH");
    auto text = [](const screen_flags& s) {
        return std::vector<bool>{s.title_menu_open, s.player_setup_open, s.map_list_open,
                                 s.editor_open, s.text_entry_open};
    };
    for (const auto& [from, to] : rows) {
        screens = from;
        turn.move_timer = 0.3;
        app.help_visible = app.running = true;
        frame();
        EXPECT_EQ(turn.move_timer < 0.3, text(from) == text({false, false, false, false, false}));
        headless_key_press(key_escape);
        EXPECT_EQ(frame(), !from.title_menu_open);
        EXPECT_EQ(text(screens), text(to));
        EXPECT_FALSE(app.help_visible);
    }
}

TEST_F(frame_test, FullscreenRebuildsTheTarget) {
    begin();
    i64 objects = live_objects();
    for (i64 times = 1; times <= 4; ++times) {
        bool full = times % 2 == 1;
        i64 width = full ? 1920 : 1024;
        i64 height = full ? 1080 : 832;
        headless_key_press(key_f11);
        frame();
        EXPECT_EQ(headless_is_fullscreen(), full);
        EXPECT_EQ(headless_fullscreen_calls(), times);
        EXPECT_EQ(live_objects(), objects);
        EXPECT_EQ(numbers_of(gpu_op::texture_image_2d),
                  (std::vector<i64>{1, 0, 13, width, height, 8, 0}));
        EXPECT_EQ(numbers_of(gpu_op::pipeline_viewport), (std::vector<i64>{0, 0, width, height}));
    }
}

TEST_F(frame_test, TheTitleTellsUntilAllIsOnTheDisk) {
    begin();
    map_work_begin();
    map_add_state(5, 5, 0);
    file_put("kept", "in the way");
    output_of(map_work_end);
    fullscreen_toggle();
    frame();
    EXPECT_EQ(headless_told(), "");  // where no title is seen
    fullscreen_toggle();
    auto told_later = [&] {
        tidings.frames_left = 1;
        frame();
        frame();
        return headless_told();
    };
    frame();
    EXPECT_EQ(headless_told(), "failed to keep map: unnamed");
    EXPECT_EQ(told_later(), "not on the disk yet: unnamed");
    EXPECT_EQ(told_later(), "not on the disk yet: unnamed");
    std::filesystem::remove("kept");
    EXPECT_EQ(told_later(), "kept: unnamed");
    EXPECT_EQ(told_later(), "");
}

TEST_F(frame_test, AGpuErrorEndsTheProgramAtOnce) {
    begin();
    auto fail = [] {
        dup2(STDERR_FILENO, STDOUT_FILENO);
        std::atexit([] { std::fputs(headless_window_is_open() ? "open" : "closed", stderr); });
        headless_set_gpu_error(1286);
        frame();
    };
    EXPECT_EXIT(fail(), testing::ExitedWithCode(0), "^gl error: 1286\nopen$");
}

}  // namespace
