#pragma once

// What the tests of memory, maps, rules and computer seats share: a clean start, small maps, boards
// as text, captured output.
//
// A card is written as in rules: "Ca3" has colour 2, shape 0 and number 3; piles are cards with
// blanks between them, the top one last.

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "maps/family.h"
#include "maps/model.h"
#include "rules/game_state.h"
#include "rules/random.h"

// Starts every test with all globals at their start values, empty arenas, and an empty temporary
// directory as the working one.
class game_test : public testing::Test {
  protected:
    game_test();
    ~game_test() override;

  private:
    std::filesystem::path outside;
    std::filesystem::path folder;
};

// Every global at its start value and both arenas empty; their memory is taken once.
void globals_start();

// A map that ships, or a broken copy of one.
struct shipped_map {
    i64 kind;
    std::filesystem::path path;
    std::string text;
};
std::vector<shipped_map> shipped_maps();

str str_of(std::string_view text);
std::string string_of(str text);

void file_put(const std::string& path, std::string_view content);
std::string file_get(const std::string& path);
// Through the platform, "failed" for a file that it cannot read.
std::string file_read_back(std::string_view path);
std::vector<std::string> names_in(const std::filesystem::path& folder);

// While it lives, no file can grow beyond `bytes`, as on a full disk.
struct full_disk {
    rlimit before;
    explicit full_disk(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        rlimit limited = {bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~full_disk() { setrlimit(RLIMIT_FSIZE, &before); }
};

// What stands in "kept/", oldest first: each file's name without the date, ": ", its text, a
// newline.
std::string kept_text();

// The text with every `from` as `to`: cases and answers in one line have ';' for line feeds.
std::string replaced(std::string text, char from, char to);

// The text with a few of its parts cut, doubled or replaced.
std::string text_broken(std::string text, std::mt19937_64& random);

// What `act` writes to standard output.
template <typename action>
std::string output_of(action act) {
    testing::internal::CaptureStdout();
    act();
    return testing::internal::GetCapturedStdout();
}

// The loaded map as it is written; the arena is left as it was.
std::string map_text();

// The words between its blanks.
std::vector<std::string> words_of(const std::string& text);

struct arc {
    u16 from;
    u16 to;
    std::string rule = "";
};

// Makes the loaded map: one character per state, "*" for an accepting one; the nimbers are computed
// for a state machine.
void map_make(i64 kind, std::string_view states, const std::vector<arc>& arcs,
              const std::vector<u16>& stones_on = {});
// Makes the seats: "H" for a human, "0" to "2" for a computer of that strength.
void seats_make(std::string_view kinds);

card card_of(std::string_view text);
void pile_set(dyn_array<card>& pile, std::string_view text);
std::string pile_text(const dyn_array<card>& pile);

// The whole game: stones, piles, tape with its head, hands, seat to move, timers, winner.
std::string game_text();

// Asks for the answer to each case of tests/NAME.golden, a file of lines "case => answer", and
// expects the one that was recorded. With QUORREL_RECORD set the answers are written anew.
void golden_check(const std::string& name,
                  const std::function<std::string(const std::string&)>& answer);

// Runs updates until no move is shown; returns how many it took.
i64 move_finish();

// How many random numbers were drawn since the generator stood at `before`.
i64 draws_since(random_state before);
