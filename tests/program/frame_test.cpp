#include "program/frame.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <algorithm>

#include "game/hand_panel.h"
#include "maps/catalogue.h"
#include "render/camera.h"
#include "rules/cards.h"
#include "rules/screens.h"
#include "tests/program/program.h"

namespace {

using frame_test = program_test;

using testing::ElementsAre;
using testing::EndsWith;
using testing::StartsWith;

constexpr const char* all_screens[] = {"t", "s", "l", "e", "le", ""};

i64 live_objects() {
    i64 count = 0;
    for (gpu_op create : {gpu_op::texture_create, gpu_op::buffer_create, gpu_op::shader_create,
                          gpu_op::vertex_array_create, gpu_op::frame_buffer_create}) {
        count += headless_live_objects(create);
    }
    return count;
}

// Of the first recorded call of that kind.
std::vector<i64> first_numbers(gpu_op op) {
    const std::vector<gpu_call>& calls = headless_calls();
    auto is_op = [op](const gpu_call& call) { return call.op == op; };
    return std::find_if(calls.begin(), calls.end(), is_op)->numbers;
}

// Nineteen pictures, the font, the target's texture; two buffers, their array, two programs, the
// target.
constexpr i64 all_objects = 19 + 2 + 2 + 1 + 2 + 1;

TEST_F(frame_test, StartUp) {
    headless_set_time(12345);
    file_put("resources/turing_maps.txt", "a maps/a\n");
    EXPECT_EQ(begin(), "");
    EXPECT_EQ(live_objects(), all_objects);
    random_state seeded = random_generator;
    random_seed(12345);
    EXPECT_EQ(random_generator, seeded);
    // What the renderer loaded was given back before the title map and the catalogues came.
    EXPECT_LT(arenas[arena_persistent].offset, 4096);
    EXPECT_EQ(catalogues[turing_machine].count, 1);
    EXPECT_EQ(screens_shown(), "t");
    std::vector<gpu_call> last(headless_calls().end() - 3, headless_calls().end());
    EXPECT_EQ(last[0].op, gpu_op::pipeline_cull_enable);
    EXPECT_EQ(last[1].op, gpu_op::pipeline_cull_orientation);
    EXPECT_EQ(last[2].op, gpu_op::pipeline_blend_factor);
    EXPECT_THAT(last[0].numbers, ElementsAre(1));
    EXPECT_THAT(last[1].numbers, ElementsAre(1));
    EXPECT_THAT(last[2].numbers, ElementsAre(3, 9));
}

TEST_F(frame_test, StartUpSaysWhatIsMissing) {
    std::filesystem::remove_all("resources");
    std::string said = begin();
    EXPECT_THAT(said, StartsWith("failed to load picture: resources/circle.png\n"));
    EXPECT_THAT(said, EndsWith("failed to open resources/font_info.txt\n"
                               "failed to open resources/state_maps.txt\n"
                               "failed to open resources/pushdown_maps.txt\n"
                               "failed to open resources/turing_maps.txt\n"));
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 19 + 4);
}

TEST_F(frame_test, TheTitleMap) {
    begin();
    screens_show("l");
    frame();
    EXPECT_EQ(
        screen_lines([](auto line) { return line[0] == 'c' || line[0] == '"'; }),
        "circle -32 -32 64 64 (0.08 0.08 0.15 1)\ncircle -160 -160 64 64 (0.08 0.08 0.15 1)\n"
        "circle -160 96 64 64 (0.08 0.08 0.15 1)\ncircle 96 96 64 64 (0.08 0.08 0.15 1)\n"
        "circle 96 -160 64 64 (0.08 0.08 0.15 1)\n"
        "\"b\" -160 0\n\"~(A,B,C,D)\" 0 168\n\"c\" 160 0\n\"~(1,2,3,4) & ~(a,b,c,d)\" 0 -168\n"
        "\"4\" -48 -80\n\"A\" -80 48 (1 0 0 1)\n\"1\" 48 80\n\"C\" 80 -48 (0 1 0 1)\n"
        "\"3\" -80 -48\n\"D\" -48 80 (1 1 0 1)\n\"2\" 80 48\n\"B\" 48 -80 (0 0 1 1)\n");
}

TEST_F(frame_test, StartingAgainStartsAnew) {
    begin_game("HH");
    settings.hand_size = tape_head = 3;
    turn.winner = 1;
    camera.zoom = 2;
    hand_row.hand_scroll_dragging = app.help_visible = true;
    end();
    begin();
    EXPECT_EQ(players.count, 0);
    EXPECT_EQ(settings.hand_size, 8);
    EXPECT_EQ(tape_head, 0);
    EXPECT_EQ(turn.winner, no_winner);
    EXPECT_FALSE(hand_row.hand_scroll_dragging || app.help_visible);
    EXPECT_EQ(camera.zoom, 1);
}

TEST_F(frame_test, AFrameEndsWithErrorCheckAndPresent) {
    begin();
    arena_alloc(arena_frame, 1 << 20);
    EXPECT_TRUE(frame());
    EXPECT_LT(arenas[arena_frame].offset, 1 << 20);
    EXPECT_EQ(headless_calls().front().op, gpu_op::vertex_array_bind);
    EXPECT_EQ((headless_calls().end() - 2)->op, gpu_op::pipeline_get_error);
    EXPECT_EQ(headless_calls().back().op, gpu_op::pipeline_present);
}

TEST_F(frame_test, TheCameraShowsOneFrameLater) {
    begin_game("H");
    map_make(state_machine, ".", {});
    auto state_x = [] {
        return lines_with("circle").substr(7, lines_with("circle").find(" -32 64") - 7);
    };
    headless_key_hold(key_d);
    frame();
    EXPECT_EQ(state_x(), "-32");
    headless_key_release(key_d);
    key(key_r);
    EXPECT_EQ(state_x(), "-36.27");
    key(key_d);  // a key that is not held any more does not move it
    EXPECT_EQ(state_x(), "-32");
    frame();
    EXPECT_EQ(state_x(), "-32");
}

TEST_F(frame_test, TurnsGoOnInTheGameAlone) {
    begin_game("HH");
    for (std::string screen : all_screens) {
        screens_show(screen);
        turn.move_timer = 0.3;
        frame();
        EXPECT_EQ(turn.move_timer < 0.3, screen == "") << screen;
    }
}

TEST_F(frame_test, EscapeGoesBack) {
    const char* const rows[][2] = {{"t", "t"}, {"l", "s"}, {"le", "e"},
                                   {"e", "t"}, {"s", "t"}, {"", "s"}};
    begin_game("HH");
    for (const auto& [from, to] : rows) {
        screens_show(from);
        screens.text_entry_open = screens_shown() == "e";
        app.help_visible = app.running = true;
        turn.move_timer = 0.3;
        EXPECT_EQ(key(key_escape), *from != 't') << from;
        EXPECT_EQ(screens_shown(), to) << from;
        EXPECT_FALSE(app.help_visible || screens.text_entry_open);
        EXPECT_EQ(turn.move_timer, 0.3) << from;
        EXPECT_EQ(headless_calls().back().op, gpu_op::pipeline_present);
    }
}

TEST_F(frame_test, HelpLiesOverEveryScreen) {
    begin_game("HH");
    for (const char* screen : all_screens) {
        screens_show(screen);
        key(key_f1);
        EXPECT_EQ(lines_with("0.97"), "white -400 -400 800 800 (0 0 0 0.97)\n") << screen;
        drawn_text text = texts_drawn().back();
        EXPECT_TRUE(text_starts_at(text.text, 112 + 32, 816 - 48));
        EXPECT_NEAR(text.size, 256, 0.01);
        EXPECT_THAT(text.text, StartsWith("Game controls:\n<esc>: quit\n"));
        EXPECT_THAT(text.text, EndsWith("     or move transition\nctrl+o/ctrl+s: load/save"));
        key(key_f1);
        EXPECT_EQ(lines_with("0.97"), "");
    }
}

TEST_F(frame_test, MemoryReport) {
    struct {
        i64 offset;
        const char* text;
    } const rows[] = {
        {0, "memory used: 0 / 262144 kiB (0%)"},
        {1023, "memory used: 0 / 262144 kiB (0.0004%)"},
        {3'145'728, "memory used: 3072 / 262144 kiB (1.1719%)"},
        {67'108'864, "memory used: 65536 / 262144 kiB (25%)"},
    };
    begin();
    key(key_f3);
    for (const auto& row : rows) {
        arenas[arena_persistent].offset = row.offset;
        frame();
        EXPECT_TRUE(text_starts_at(row.text, 16, 16));
        EXPECT_NEAR(texts_drawn().back().size, 128, 0.01);
        EXPECT_EQ(texts_drawn().back().tint, (colour{1, 0, 0, 0.8f}));
    }
    key(key_f3);
    EXPECT_EQ(lines_with("memory"), "");
}

TEST_F(frame_test, FullscreenRebuildsTheTarget) {
    begin();
    for (i64 times = 1; times <= 4; ++times) {
        bool full = times % 2 == 1;
        i64 width = full ? 1920 : 1024;
        i64 height = full ? 1080 : 832;
        key(key_f11);
        EXPECT_EQ(headless_is_fullscreen(), full);
        EXPECT_EQ(headless_fullscreen_calls(), times);
        EXPECT_EQ(live_objects(), all_objects);
        EXPECT_THAT(first_numbers(gpu_op::texture_image_2d),
                    ElementsAre(1, 0, 13, width, height, 8, 0));
        EXPECT_THAT(first_numbers(gpu_op::pipeline_viewport), ElementsAre(0, 0, width, height));
        EXPECT_TRUE(is_drawn("\"Game Mode\" 0 352"));
    }
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

TEST_F(frame_test, AClosedWindowEndsAfterItsFrame) {
    begin_game("HH");
    EXPECT_TRUE(headless_window_is_open());
    headless_close_window();
    EXPECT_FALSE(frame());
    EXPECT_EQ(headless_calls().back().op, gpu_op::pipeline_present);
    end();
    EXPECT_EQ(live_objects(), 0);
    EXPECT_FALSE(headless_window_is_open());
    EXPECT_EQ(arenas[arena_persistent].offset, 0);
}

}  // namespace
