#include "shell/frame.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <algorithm>

#include "game/hand_panel.h"
#include "maps/catalogue.h"
#include "rules/cards.h"
#include "rules/screens.h"
#include "shell/app.h"
#include "shell/camera.h"
#include "tests/shell/program.h"

namespace {

using frame_test = program_test;

using testing::ElementsAre;
using testing::EndsWith;
using testing::StartsWith;

constexpr const char* all_screens[] = {"title ", "setup ", "list ", "editor ", "list editor ", ""};

// Nineteen pictures, the font, the target's texture; two buffers, their array, two programs, the
// target.
constexpr i64 all_objects = 19 + 2 + 2 + 1 + 2 + 1;

i64 live_objects() {
    i64 count = 0;
    for (gpu_op create : {gpu_op::texture_create, gpu_op::buffer_create, gpu_op::shader_create,
                          gpu_op::vertex_array_create, gpu_op::frame_buffer_create}) {
        count += headless_live_objects(create);
    }
    return count;
}

// The arguments of the last recorded call of that kind.
std::vector<i64> last_call(gpu_op op) {
    const std::vector<gpu_call>& calls = headless_calls();
    auto found =
        std::find_if(calls.rbegin(), calls.rend(), [op](const auto& c) { return c.op == op; });
    return found == calls.rend() ? std::vector<i64>{-1} : found->numbers;
}

TEST_F(frame_test, StartUp) {
    headless_set_time(12345);
    file_put("resources/turing_maps.txt", "a maps/a\n");
    EXPECT_EQ(begin(), "");
    EXPECT_TRUE(headless_window_is_open());
    EXPECT_EQ(live_objects(), all_objects);
    random_state seeded = random_generator;
    random_seed(12345);
    EXPECT_EQ(random_generator, seeded);
    // What the renderer loaded was given back before the title map and the catalogues came.
    EXPECT_LT(arenas[arena_persistent].offset, 4096);
    EXPECT_EQ(catalogues[turing_machine].count, 1);
    EXPECT_EQ(screens_open(), "title ");
    EXPECT_THAT(last_call(gpu_op::pipeline_cull_enable), ElementsAre(1));
    EXPECT_THAT(last_call(gpu_op::pipeline_cull_orientation), ElementsAre(1));
    EXPECT_THAT(last_call(gpu_op::pipeline_blend_factor), ElementsAre(3, 9));
    EXPECT_EQ(headless_calls().back().op, gpu_op::pipeline_blend_factor);
}

TEST_F(frame_test, StartUpSaysWhatIsMissing) {
    std::filesystem::remove_all("resources");
    std::string said = begin();
    EXPECT_THAT(said, StartsWith("failed to load picture: resources/circle.png\n"));
    EXPECT_THAT(said, EndsWith("failed to open resources/font_info.txt\n"
                               "failed to open resources/state_maps.txt\n"
                               "failed to open resources/pushdown_maps.txt\n"
                               "failed to open resources/turing_maps.txt\n"));
    EXPECT_TRUE(frame());
}

TEST_F(frame_test, TheTitleMap) {
    begin();
    screens_set("list ");
    frame();
    EXPECT_EQ(screen_lines([](auto line) { return line[0] == 'c' || line[0] == '"'; }),
              "circle -32 -32 64 64 (0.08 0.08 0.15 1)\n"
              "circle -160 -160 64 64 (0.08 0.08 0.15 1)\ncircle -160 96 64 64 (0.08 0.08 0.15 1)\n"
              "circle 96 96 64 64 (0.08 0.08 0.15 1)\ncircle 96 -160 64 64 (0.08 0.08 0.15 1)\n"
              "\"b\" -160 0\n\"~(A,B,C,D)\" 0 168\n\"c\" 160 0\n"
              "\"~(1,2,3,4) & ~(a,b,c,d)\" 0 -168\n\"4\" -48 -80\n\"A\" -80 48 (1 0 0 1)\n"
              "\"1\" 48 80\n\"C\" 80 -48 (0 1 0 1)\n\"3\" -80 -48\n\"D\" -48 80 (1 1 0 1)\n"
              "\"2\" 80 48\n\"B\" 48 -80 (0 0 1 1)\n");
}

TEST_F(frame_test, StartingAgainStartsAnew) {
    begin_game("HH");
    machine_kind = turing_machine;
    settings.hand_size = tape_head = selection.selected_card = 3;
    turn.winner = 1;
    hand_row.hand_scroll_dragging = app.help_visible = true;
    camera.zoom = 2;
    key(key_f11);
    end();
    begin();
    EXPECT_EQ(machine_kind, pushdown_machine);
    EXPECT_EQ(players.count, 0);
    EXPECT_THAT((std::vector<i64>{settings.hand_size, tape_head, selection.selected_card}),
                ElementsAre(8, 0, no_card));
    EXPECT_EQ(turn.winner, no_winner);
    EXPECT_FALSE(hand_row.hand_scroll_dragging || app.help_visible);
    EXPECT_EQ(camera.zoom, 1);
    EXPECT_EQ(render_target.width, 1024);
}

TEST_F(frame_test, AClosedWindowEndsAfterItsFrame) {
    begin();
    arena_alloc(arena_frame, 1 << 20);
    EXPECT_TRUE(frame());
    EXPECT_LT(arenas[arena_frame].offset, 1 << 20);
    headless_close_window();
    EXPECT_FALSE(frame());
    EXPECT_EQ((headless_calls().end() - 2)->op, gpu_op::pipeline_get_error);
    EXPECT_EQ(headless_calls().back().op, gpu_op::pipeline_present);
    end();
    EXPECT_EQ(live_objects(), 0);
    EXPECT_FALSE(headless_window_is_open());
}

TEST_F(frame_test, TheCameraShowsOneFrameLater) {
    begin_game("H");
    map_make(state_machine, ".", {});
    const std::string centred = "circle -32 -32 64 64 (0.08 0.08 0.15 1)\n";
    const std::string moved = "circle -36.27 -32 64 64 (0.08 0.08 0.15 1)\n";
    headless_key_hold(key_d);
    frame();
    EXPECT_EQ(lines_with("circle"), centred);
    headless_key_release(key_d);
    frame();
    EXPECT_EQ(lines_with("circle"), moved);
    key(key_r);
    EXPECT_EQ(lines_with("circle"), moved);
    frame();
    EXPECT_EQ(lines_with("circle"), centred);
}

TEST_F(frame_test, TurnsGoOnInTheGameAlone) {
    begin_game("HH");
    for (std::string screen : all_screens) {
        screens_set(screen);
        turn.move_timer = 0.3;
        frame();
        EXPECT_EQ(turn.move_timer < 0.3, screen.empty()) << screen;
    }
}

TEST_F(frame_test, EscapeGoesBack) {
    const struct {
        const char *from, *to;
        // clang-format off
    } rows[] = {
        {"title ", "title "}, {"list ", "setup "}, {"list editor ", "editor "},
        {"editor ", "title "}, {"setup ", "title "}, {"", "setup "},
    };
    // clang-format on
    begin_game("HH");
    for (const auto& row : rows) {
        screens_set(row.from);
        screens.text_entry_open = screens_open() == "editor ";
        app.help_visible = app.running = true;
        turn.move_timer = 0.3;
        EXPECT_EQ(key(key_escape), std::string("title ") != row.from);
        EXPECT_EQ(screens_open(), row.to) << row.from;
        EXPECT_FALSE(app.help_visible || screens.text_entry_open);
        EXPECT_EQ(turn.move_timer, 0.3) << row.from;
        EXPECT_EQ(headless_calls().back().op, gpu_op::pipeline_present);
    }
}

TEST_F(frame_test, HelpLiesOverEveryScreen) {
    begin_game("HH");
    for (const char* screen : all_screens) {
        screens_set(screen);
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
    const struct {
        i64 offset;
        const char* text;
    } rows[] = {{1023, "memory used: 0 / 262144 kiB (0.0004%)"},
                {3'145'728, "memory used: 3072 / 262144 kiB (1.1719%)"},
                {67'108'864, "memory used: 65536 / 262144 kiB (25%)"}};
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
    for (i64 times = 1; times <= 6; ++times) {
        i64 width = times % 2 == 1 ? 1920 : 1024;
        i64 height = times % 2 == 1 ? 1080 : 832;
        u32 old_texture = render_target.texture;
        key(key_f11);
        EXPECT_EQ(headless_is_fullscreen(), times % 2 == 1);
        EXPECT_NE(render_target.texture, old_texture);
        EXPECT_EQ(live_objects(), all_objects);
        EXPECT_THAT(last_call(gpu_op::texture_image_2d),
                    ElementsAre(1, 0, 13, width, height, 8, 0));
        EXPECT_THAT(last_call(gpu_op::pipeline_viewport), ElementsAre(0, 0, width, height));
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

}  // namespace
