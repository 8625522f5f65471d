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

std::string file_text(std::string_view path) {
    file_id file = file_open(str_of(path), file_mode_read);
    std::string text(static_cast<std::size_t>(file_size(file)), '?');
    file_read(file, file_size(file), text.data());
    file_close(file);
    return file_failed(file) ? "failed" : text;
}

std::vector<std::string> names_in(const fs::path& folder) {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        names.push_back(entry.path().filename());
    }
    return names;
}

}  // namespace

TEST_F(file_test, what_is_written_is_read_back_and_replaces_the_old_at_its_close) {
    const std::string binary("a\0\n\xff", 4);
    for (const std::string& content : {std::string(100'000, 'x'), binary, std::string()}) {
        EXPECT_TRUE(file_replace("new/deep/file", content));
        EXPECT_EQ(file_text("new/deep/file"), content);
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
    fs::create_directory("folder");
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
    EXPECT_FALSE(file_replace("folder/", "new") || file_replace("a/below", "new"));
    EXPECT_FALSE(file_replace("folder/" + std::string(300, 'n'), "new"));
    EXPECT_TRUE(fs::is_fifo("pipe"));
    EXPECT_EQ(file_get("a"), "content");
    // What the target became while it was written.
    file_id file = file_open("late/target", file_mode_write);
    fs::create_directory("late/target");
    file_close(file);
    EXPECT_TRUE(file_failed(file));
    EXPECT_EQ(names_in("late"), std::vector<std::string>{"target"});
    EXPECT_EQ(names_in("folder"), std::vector<std::string>{});
}

TEST_F(file_test, a_failed_write_leaves_the_old_file_whole_and_nothing_beside_it) {
    file_put("safe/target", "old");
    {
        full_disk limit(4096);
        EXPECT_FALSE(file_replace("safe/target", std::string(1'000'000, 'x')));
        EXPECT_FALSE(file_replace("safe/target", std::string(4097, 'x')));
    }
    EXPECT_EQ(file_get("safe/target"), "old");
    EXPECT_EQ(names_in("safe"), std::vector<std::string>{"target"});
}

TEST_F(file_test, a_replaced_file_keeps_its_permissions_and_its_link) {
    file_put("real", "old");
    fs::permissions("real", fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("real", "link");
    EXPECT_TRUE(file_replace("link", "new"));
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

TEST_F(file_test, a_discarded_file_leaves_no_trace) {
    file_put("safe/target", "old");
    file_id file = file_open("safe/target", file_mode_write);
    file_write(file, 3, "new");
    file_discard(file);
    EXPECT_TRUE(file_failed(file));
    EXPECT_EQ(file_get("safe/target"), "old");
    EXPECT_EQ(names_in("safe"), std::vector<std::string>{"target"});
}

TEST_F(file_test, dated_files_replace_none) {
    file_put("a", "x");
    for (int i = 0; i < 3; ++i) {
        file_id file = file_open("many/a", file_mode_dated);
        file_write(file, 1, "x");
        file_close(file);
        EXPECT_FALSE(file_failed(file));
        EXPECT_TRUE(file_keep("a", "many/a"));
    }
    file_delete("a");
    EXPECT_FALSE(file_keep("a", "many/a"));
    std::vector<std::string> names = names_in("many");
    ASSERT_EQ(names.size(), 6U);
    for (const std::string& name : names) {
        EXPECT_THAT(name, testing::MatchesRegex("a\\.2[0-9]+-[0-9-]+_[0-9-]+"));
        EXPECT_EQ(file_get("many/" + name), "x");
    }
}

TEST_F(file_test, a_file_is_kept_on_another_file_system) {
    std::string elsewhere = "/dev/shm/quorrel-XXXXXX";
    ASSERT_NE(mkdtemp(elsewhere.data()), nullptr);
    file_put("a", "content");
    EXPECT_TRUE(file_keep("a", str_of(elsewhere + "/a")));
    ASSERT_EQ(names_in(elsewhere).size(), 1U);
    EXPECT_EQ(file_get(elsewhere + "/" + names_in(elsewhere)[0]), "content");
    fs::remove_all(elsewhere);
}

// Runs `act` in another process, which then ends without tidying up; `while_it_lives` runs before.
template <typename action, typename other_action>
void in_another_process(action act, other_action while_it_lives) {
    int to_parent[2], to_child[2];
    ASSERT_EQ(pipe(to_parent) + pipe(to_child), 0);
    pid_t child = fork();
    char byte = 'x';
    if (child == 0) {
        act();
        _exit(write(to_parent[1], &byte, 1) + read(to_child[0], &byte, 1) == 2 ? 0 : 1);
    }
    EXPECT_EQ(read(to_parent[0], &byte, 1), 1);
    while_it_lives();
    EXPECT_EQ(write(to_child[1], &byte, 1), 1);
    waitpid(child, nullptr, 0);
    for (int end : {to_parent[0], to_parent[1], to_child[0], to_child[1]}) {
        close(end);
    }
}

TEST_F(file_test, a_sweep_takes_what_the_killed_left_and_nothing_else) {
    file_put("folder/.quorrel-file", "not ours");
    auto write_half = [] { file_write(file_open("folder/deep/target", file_mode_write), 1, "x"); };
    auto sweep = [] { folder_sweep("folder"); };
    auto leftovers = [] { return names_in("folder/deep").size(); };
    in_another_process(write_half, [&] {
        sweep();
        EXPECT_EQ(leftovers(), 1U);  // its writer lives
    });
    EXPECT_EQ(leftovers(), 1U);
    sweep();
    EXPECT_EQ(leftovers(), 0U);
    EXPECT_TRUE(fs::exists("folder/.quorrel-file"));
    folder_sweep("missing");
}

TEST_F(file_test, a_folder_is_locked_by_one_program_at_a_time) {
    fs::create_directory("folder");
    in_another_process([] { folder_lock("folder"); },
                       [] {
                           auto start = std::chrono::steady_clock::now();
                           folder_lock("folder");
                           folder_unlock();
                           EXPECT_GT(std::chrono::steady_clock::now() - start,
                                     std::chrono::seconds(1));
                       });
    folder_lock("folder");
    folder_unlock();
    folder_lock("missing");
    folder_unlock();
}

TEST_F(file_test, the_fallback_is_read_but_neither_written_nor_deleted) {
    file_put("data/folder/file", "data");
    file_set_fallback("data");
    EXPECT_EQ(file_text("folder/file"), "data");
    EXPECT_TRUE(file_exists("folder/file"));
    file_delete("folder/file");
    EXPECT_TRUE(file_replace("folder/file", "own"));
    EXPECT_EQ(file_text("folder/file"), "own");
    EXPECT_EQ(file_get("data/folder/file"), "data");
    file_set_fallback("");
    file_delete("folder/file");
    EXPECT_FALSE(file_exists("folder/file"));
}
