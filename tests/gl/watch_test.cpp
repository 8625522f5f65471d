#include <filesystem>

#include "tests/gl/player.h"
#include "tests/gl/watch.h"
#include "tests/support/screen.h"

namespace {

void frame_draw() {
    ASSERT_TRUE(gl_play(headless_calls()));
}

void pictures_take() {
    for (const auto& entry : std::filesystem::directory_iterator(QUORREL_SOURCE_DIR "/resources")) {
        if (entry.path().extension() == ".png") {
            std::filesystem::copy_file(entry.path(), "resources" / entry.path().filename(),
                                       std::filesystem::copy_options::overwrite_existing);
        }
    }
}

void session_run(const std::function<void()>& session, bool window_forgets) {
    pictures_take();
    gl_play_begin(window_forgets);
    frame_watch = frame_draw;
    session();
    EXPECT_GT(gl_play_end(), 0);
    std::_Exit(testing::Test::HasFailure() ? 1 : 0);
}

}  // namespace

void gl_expect_same(const std::function<void()>& session, bool window_forgets) {
    EXPECT_EXIT(session_run(session, window_forgets), testing::ExitedWithCode(0), "");
}

namespace {

// A player who presses and points at random.
class gl_session : public screen_test, public testing::WithParamInterface<bool> {
  protected:
    void act(std::mt19937_64& random) {
        constexpr u32 keys[] = {key_enter, key_f1, key_f2,    key_space, key_w, key_d,     key_f11,
                                key_left,  key_up, key_right, key_ctrl,  key_z, key_escape};
        if (random() % 3 == 0) {
            headless_key_press(keys[random() % std::size(keys)]);
        }
        point_at(static_cast<f64>(random() % 1024) - 512, static_cast<f64>(random() % 832) - 416);
        if (random() % 2 == 0) {
            headless_mouse_press(mouse_left);
            headless_mouse_release(mouse_left);
        }
        frame();
    }
};

TEST_P(gl_session, a_random_one_is_drawn_in_part_as_it_is_whole) {
    gl_expect_same(
        [&] {
            std::filesystem::copy(QUORREL_SOURCE_DIR "/resources", "resources",
                                  std::filesystem::copy_options::recursive |
                                      std::filesystem::copy_options::overwrite_existing);
            std::mt19937_64 random(7);
            begin();
            for (int acts = 0; acts < 150; ++acts) {
                act(random);
            }
        },
        GetParam());
}

INSTANTIATE_TEST_SUITE_P(windows, gl_session, testing::Bool());

}  // namespace
