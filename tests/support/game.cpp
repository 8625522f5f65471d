#include "tests/support/game.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <tuple>

#include "game/turn_update.h"
#include "maps/nimbers.h"
#include "maps/writer.h"
#include "platform/file.h"
#include "platform/headless/headless.h"
#include "platform/input.h"
#include "program/globals.h"
#include "rules/cards.h"
#include "rules/seats.h"

void globals_start() {
    static const arena memory[] = {(arenas_create(), arenas[arena_persistent]),
                                   arenas[arena_frame]};
    globals_reset();
    std::copy(std::begin(memory), std::end(memory), arenas);
}

game_test::game_test() : outside(std::filesystem::current_path()) {
    std::string name = (std::filesystem::temp_directory_path() / "quorrel-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::filesystem::filesystem_error("no temporary directory", {});
    }
    folder = name;
    std::filesystem::current_path(folder);
    globals_start();
    headless_reset();
    random_seed(1);
}

game_test::~game_test() {
    std::filesystem::current_path(outside);
    std::filesystem::remove_all(folder);
}

std::vector<shipped_map> shipped_maps() {
    std::vector<shipped_map> maps;
    for (i64 kind = 0; kind < machine_kind_count; ++kind) {
        std::filesystem::path folder = QUORREL_SOURCE_DIR "/resources/maps";
        for (const auto& entry : std::filesystem::recursive_directory_iterator(
                 folder / string_of(family_names[kind]))) {
            if (entry.is_regular_file()) {
                maps.push_back({kind, entry.path(), file_get(entry.path())});
            }
        }
    }
    return maps;
}

str str_of(std::string_view text) {
    return {text.data(), static_cast<i64>(text.size())};
}

std::string replaced(std::string text, char from, char to) {
    std::replace(text.begin(), text.end(), from, to);
    return text;
}

std::string string_of(str text) {
    return {text.begin(), text.end()};
}

void file_put(const std::string& path, std::string_view content) {
    std::filesystem::path parent = std::filesystem::path(path).parent_path();
    if (!parent.empty()) {
        std::filesystem::create_directories(parent);
    }
    std::filesystem::remove(path);  // a file cut short and written again is slow on some disks
    std::ofstream(path, std::ios::binary) << content;
}

std::string file_get(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string file_read_back(std::string_view path) {
    file_id file = file_open(str_of(path), file_mode_read);
    std::string text(static_cast<std::size_t>(file_size(file)), '?');
    file_read(file, file_size(file), text.data());
    file_close(file);
    return file_failed(file) ? "failed" : text;
}

std::vector<std::string> names_in(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(entry.path().filename());
    }
    return names;
}

std::string kept_text() {
    std::vector<std::tuple<std::filesystem::file_time_type, std::size_t, std::string>> files;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator("kept", none)) {
        std::string path = entry.path().string();
        files.emplace_back(entry.last_write_time(), path.size(), path);
    }
    std::sort(files.begin(), files.end());
    std::string text;
    for (const auto& [time, length, path] : files) {
        text += std::filesystem::path(path).stem().string() + ": " + file_get(path) + "\n";
    }
    return text;
}

std::string text_broken(std::string text, std::mt19937_64& random) {
    // clang-format off
    constexpr std::string_view words[] = {
        "\"", " ", "\n", "-", ".", "goal ", "=> ", "stone 70000", "map ", "99999999999999999999",
        "\xff", std::string_view("\0", 1)};
    // clang-format on
    for (u64 changes = 1 + random() % 8; changes > 0; --changes) {
        std::size_t place = random() % (text.size() + 1);
        std::string piece(words[random() % std::size(words)]);
        if (random() % 2 == 0) {
            piece = text.substr(random() % (text.size() + 1), random() % 60);
        }
        text.replace(place, random() % 16 == 0 ? text.npos : random() % 12, piece);
    }
    return text;
}

std::vector<std::string> words_of(const std::string& text) {
    std::istringstream in(text);
    return {std::istream_iterator<std::string>(in), {}};
}

std::string map_text() {
    const i64 used = arenas[arena_persistent].offset;
    text_builder text = {};
    map_write(text);
    arena_rewind(arena_persistent, used);
    return string_of(text_builder_text(text));
}

void map_make(i64 kind, std::string_view states, const std::vector<arc>& arcs,
              const std::vector<u16>& stones_on) {
    machine_kind = kind;
    map_clear();
    for (std::size_t i = 0; i < states.size(); ++i) {
        map_add_state(static_cast<f64>(i), 0, states[i] == '*');
    }
    for (const arc& a : arcs) {
        map_add_transition(a.from, a.to, 0, 0, 0, str_copy(str_of(a.rule)));
    }
    for (u16 state : stones_on) {
        dyn_array_push(stones, state);
    }
    if (kind == state_machine) {
        nimbers_compute();
    }
}

void seats_make(std::string_view kinds) {
    players.count = 0;
    for (char kind : kinds) {
        player seat;
        seat_colour_set(seat, 0);
        seat.is_computer = kind != 'H';
        seat.strength = seat.is_computer ? static_cast<u64>(kind - '0') : 0;
        dyn_array_push(players, seat);
    }
    player_count = players.count;
}

card card_of(std::string_view text) {
    return {static_cast<u8>(text[0] - 'A'), static_cast<u8>(text[1] - 'a'),
            static_cast<u8>(text[2] - '0')};
}

void pile_set(dyn_array<card>& pile, std::string_view text) {
    pile.count = 0;
    for (const std::string& word : words_of(std::string(text))) {
        dyn_array_push(pile, card_of(word));
    }
}

std::string pile_text(const dyn_array<card>& pile) {
    std::string text;
    for (card c : pile) {
        text += text.empty() ? "" : " ";
        text += {static_cast<char>('A' + c.colour), static_cast<char>('a' + c.shape),
                 static_cast<char>('0' + c.number)};
    }
    return text;
}

std::string game_text() {
    std::ostringstream text;
    text << "stones";
    for (u16 state : stones) {
        text << ' ' << state;
    }
    text << "\ndeck " << pile_text(deck.cards) << "\ndiscard " << pile_text(discard_pile.cards)
         << "\ntape " << pile_text(tape) << " head " << tape_head;
    for (const player& seat : players) {
        text << "\nhand " << pile_text(seat.hand);
    }
    text << "\nseat " << int{turn.current_player} << " move " << turn.move_timer << " think "
         << turn.think_timer << " drawn " << turn.card_drawn << " revealed " << turn.turn_revealed
         << " winner " << int{turn.winner} << "\n";
    return text.str();
}

void golden_check(const std::string& name,
                  const std::function<std::string(const std::string&)>& answer) {
    const std::string path = QUORREL_SOURCE_DIR "/tests/" + name + ".golden";
    std::istringstream lines(file_get(path));
    std::string anew;
    i64 count = 0;
    for (std::string line; std::getline(lines, line); ++count) {
        std::size_t end = line.rfind(" => ");
        std::string now = line.substr(0, end) + " => " + answer(line.substr(0, end));
        EXPECT_TRUE(now == line || std::getenv("QUORREL_RECORD") != nullptr) << line << "\n" << now;
        anew += now + "\n";
    }
    EXPECT_GT(count, 0) << path;
    if (std::getenv("QUORREL_RECORD") != nullptr) {
        file_put(path, anew);
    }
}

i64 move_finish() {
    i64 updates = 0;
    for (; turn.move_timer > 0; ++updates) {
        turn_update();
    }
    return updates;
}

i64 draws_since(random_state before) {
    random_state now = random_generator;
    random_generator = before;
    i64 draws = 0;
    for (; random_generator != now && draws < 100'000; ++draws) {
        random_next();
    }
    return draws;
}
