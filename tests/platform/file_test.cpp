#include "platform/file.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/folder.h"
#include "tests/support/game.h"

namespace {

namespace fs = std::filesystem;

class file_test : public game_test {};

// Writes through the platform; whether it succeeded.
bool file_replace(std::string_view path, std::string_view content) {
    file_id file = file_open(str_of(path), file_mode_write);
    file_write(file, static_cast<i64>(content.size()), content.data());
    file_close(file);
    return !file_failed(file);
}

}  // namespace

TEST_F(file_test, what_is_written_is_read_back_and_replaces_the_old_at_its_close) {
    const std::string binary("a\0\n\xff", 4);
    for (const std::string& content : {std::string(100'000, 'x'), binary, std::string()}) {
        EXPECT_TRUE(file_replace("new/deep/file", content));
        EXPECT_EQ(file_read_back("new/deep/file"), content);
    }
    EXPECT_EQ(names_in("new/deep"), std::vector<std::string>{"file"});
    file_put("target", "old");
    file_id file = file_open("target", file_mode_write);
    file_write(file, 3, "new");
    file_write_byte(file, '!');
    EXPECT_EQ(file_get("target"), "old");
    file_close(file);
    EXPECT_EQ(file_get("target"), "new!");
    file = file_open("target", file_mode_read);
    char bytes[] = "??????";
    file_read(file, 6, bytes);  // beyond the end
    EXPECT_TRUE(file_failed(file));
    EXPECT_EQ(std::string(bytes, 6), std::string("new!\0\0", 6));
    file_close(file);
    file_delete("target");
    file_delete("target");
    EXPECT_FALSE(file_exists("target"));
}

TEST_F(file_test, only_regular_files_open) {
    file_put("folder/file", "");
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    file_put("a", "content");
    for (std::string_view path :
         {std::string_view("missing/x"), std::string_view("folder"), std::string_view("pipe"),
          std::string_view("/dev/zero"), std::string_view(""), std::string_view("a\0", 2)}) {
        SCOPED_TRACE(path);
        EXPECT_FALSE(file_exists(str_of(path)));
        file_id file = file_open(str_of(path), file_mode_read);
        EXPECT_TRUE(file_failed(file));
        EXPECT_EQ(file_size(file), 0);
        file_close(file);
        EXPECT_TRUE(file_failed(file));
        EXPECT_TRUE(path[0] == 'm' || path[0] == '/' || !file_replace(path, "new"));
    }
    for (const char* path : {"folder/", "fresh/", "fresh/er/", "a/below", "a/far/below"}) {
        EXPECT_FALSE(file_replace(path, "new")) << path;
    }
    EXPECT_FALSE(fs::exists("fresh"));
    fs::create_directory("empty");
    EXPECT_TRUE(file_replace("empty", "new"));  // makes way
    EXPECT_TRUE(fs::is_fifo("pipe"));
    // What the target became while it was written.
    file_id file = file_open("late/target", file_mode_write);
    fs::create_directory("late/target");
    file_close(file);
    EXPECT_TRUE(file_failed(file));
    EXPECT_EQ(names_in("late"), std::vector<std::string>{"target"});
}

TEST_F(file_test, a_failed_or_discarded_write_leaves_the_old_file_whole_and_nothing_beside_it) {
    file_put("safe/target", "old");
    {
        full_disk limit(4096);
        EXPECT_FALSE(file_replace("safe/target", std::string(1'000'000, 'x')));
        EXPECT_FALSE(file_replace("safe/target", std::string(4097, 'x')));
    }
    file_id file = file_open("safe/target", file_mode_write);
    file_write(file, 3, "new");
    file_discard(file);
    EXPECT_TRUE(file_failed(file));
    EXPECT_EQ(file_get("safe/target"), "old");
    EXPECT_EQ(names_in("safe"), std::vector<std::string>{"target"});
}

TEST_F(file_test, a_replaced_file_keeps_its_permissions_and_its_link) {
    file_put("real", "old");
    fs::permissions("real", fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("real", "link");
    const mode_t mask = umask(026);
    EXPECT_TRUE(file_replace("link", "new") && file_replace("fresh", "") && file_replace("z", ""));
    EXPECT_EQ(umask(mask), 026U);
    EXPECT_EQ(fs::status("fresh").permissions(), fs::perms(0640));
    EXPECT_TRUE(fs::is_symlink("link"));
    EXPECT_EQ(file_get("real"), "new");
    EXPECT_EQ(fs::status("real").permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(file_test, stale_and_too_many_handles_are_harmless) {
    file_put("a", "content");
    std::vector<file_id> open;
    while (open.size() < 1000 && (open.empty() || !file_failed(open.back()))) {
        open.push_back(file_open("a", file_mode_read));
    }
    EXPECT_LT(open.size(), 1000U);
    for (file_id file : open) {
        file_close(file);
    }
    file_id fresh = file_open("a", file_mode_read);
    char byte = '?';
    for (file_id file : {open.front(), file_id{0}, ~file_id{0}}) {
        file_read(file, 1, &byte);
        file_write(file, 1, &byte);
        file_close(file);
        EXPECT_EQ(file_size(file), 0);
        EXPECT_TRUE(file_failed(file));
    }
    EXPECT_EQ(byte, '?');
    EXPECT_EQ(file_size(fresh), 7);
    file_close(fresh);
}

TEST_F(file_test, dated_files_replace_none_here_and_on_another_file_system) {
    std::string elsewhere = "/dev/shm/quorrel-XXXXXX";
    ASSERT_NE(mkdtemp(elsewhere.data()), nullptr);
    file_put("a", "x");
    for (int i = 0; i < 3; ++i) {
        file_id file = file_open("many/a", file_mode_dated);
        file_write(file, 1, "x");
        file_close(file);
        EXPECT_FALSE(file_failed(file));
        EXPECT_TRUE(file_keep("a", "many/a") && file_keep("a", str_of(elsewhere + "/a")));
    }
    file_delete("a");
    EXPECT_FALSE(file_keep("a", "many/a"));
    EXPECT_EQ(names_in("many").size(), 6U);
    EXPECT_EQ(names_in(elsewhere).size(), 3U);
    for (const std::string& kept_in : {std::string("many"), elsewhere}) {
        for (const std::string& name : names_in(kept_in)) {
            EXPECT_THAT(name, testing::MatchesRegex("a\\.2[0-9]+-[0-9-]+_[0-9-]+"));
            EXPECT_EQ(file_get(kept_in + "/" + name), "x");
        }
    }
    fs::remove_all(elsewhere);
}

// Runs `act` in another process, then `while_it_lives` here, then kills the other one.
template <typename action, typename other_action>
void in_another_process(action act, other_action while_it_lives) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    pid_t child = fork();
    char byte = 'x';
    if (child == 0) {
        act();
        EXPECT_EQ(write(ready[1], &byte, 1), 1);
        pause();
    }
    EXPECT_EQ(read(ready[0], &byte, 1), 1);
    while_it_lives();
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    close(ready[0]);
    close(ready[1]);
}

TEST_F(file_test, a_sweep_takes_what_the_killed_left_and_nothing_else) {
    file_put("folder/.quorrel-file", "not ours");
    auto write_half = [] { file_write(file_open("folder/deep/target", file_mode_write), 1, "x"); };
    auto sweep_leaves = [](std::size_t count) {
        folder_sweep("folder");
        EXPECT_EQ(names_in("folder/deep").size(), count);
    };
    in_another_process(write_half, [&] { sweep_leaves(1); });
    sweep_leaves(0);
    EXPECT_TRUE(fs::exists("folder/.quorrel-file"));
    folder_sweep("missing");
}

TEST_F(file_test, a_folder_is_locked_by_one_program_at_a_time) {
    auto seconds_to_lock = [](str path) {
        auto start = std::chrono::steady_clock::now();
        folder_lock(path);
        folder_unlock();
        return std::chrono::duration<f64>(std::chrono::steady_clock::now() - start).count();
    };
    in_another_process([] { folder_lock("missing/folder"); },
                       [&] { EXPECT_GT(seconds_to_lock("missing/folder"), 1); });
    file_put("file", "");
    EXPECT_LT(seconds_to_lock("missing/folder") + seconds_to_lock("file"), 2);
}

TEST_F(file_test, the_fallback_is_read_but_neither_written_nor_deleted) {
    file_put("data/folder/file", "data");
    file_set_fallback("data");
    EXPECT_EQ(file_read_back("folder/file"), "data");
    EXPECT_TRUE(file_exists("folder/file"));
    file_delete("folder/file");
    EXPECT_TRUE(file_replace("folder/file", "own"));
    EXPECT_EQ(file_read_back("folder/file"), "own");
    EXPECT_EQ(file_get("data/folder/file"), "data");
    file_set_fallback("");
    file_delete("folder/file");
    EXPECT_FALSE(file_exists("folder/file"));
}
