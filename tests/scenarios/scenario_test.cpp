// Replays tests/scenarios/*.scenario: acts of a player, each line followed by what it changed.
//
// A line that begins with '>' holds acts, one that begins with '|' belongs to the file that the act
// before it writes, '#' is a comment. The indented lines were recorded: what was said, what changed
// in the game and the map, and what is drawn now (+) or no longer (-). After '>>' nothing is. With
// QUORREL_RECORD set they are written anew, for a person to read the difference.

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <set>
#include <sstream>

#include "base/tidings.h"
#include "editor/goal_editing.h"
#include "maps/catalogue.h"
#include "render/camera.h"
#include "render/goal_text.h"
#include "rules/cards.h"
#include "shown/screens.h"
#include "shown/selection.h"
#include "tests/gl/watch.h"
#include "tests/support/screen.h"
#include "tests/support/walker.h"

namespace {

using lines = std::vector<std::string>;

constexpr const char* scenarios_folder = QUORREL_SOURCE_DIR "/tests/scenarios/";

// One act with the comments before it, the lines of its file and the recorded lines after it.
struct step {
    std::string comments, written, acts, file, recorded;
};

lines lines_of(const std::string& text) {
    std::istringstream in(text);
    lines all;
    for (std::string line; std::getline(in, line);) {
        all.push_back(line);
    }
    return all;
}

std::vector<step> steps_read(const std::string& text) {
    std::vector<step> steps;
    std::string comments;
    for (const std::string& line : lines_of(text)) {
        if (line.starts_with('#') || line.empty()) {
            comments += line + "\n";
        } else if (line.starts_with('>')) {
            steps.push_back(
                {comments, line + "\n", line.substr(line.find_first_not_of("> ")), "", ""});
            comments = "";
        } else if (line.starts_with('|')) {
            steps.back().written += line + "\n";
            steps.back().file += line.substr(std::min<std::size_t>(2, line.size())) + "\n";
        } else {
            steps.back().recorded += line + "\n";
        }
    }
    return steps;
}

std::string number_text(f64 value) {
    return (std::ostringstream() << std::round(value * 100) / 100).str();
}

std::string goal_text_of(const goal& g) {
    char bytes[goal_text_capacity];
    text_buffer text = {bytes, goal_text_capacity, 0, 0};
    goal_text_put(text, g);
    return string_of(text_buffer_text(text));
}

std::string index_text(i64 index, i64 none) {
    return index == none ? " -" : " " + std::to_string(index);
}

std::string seats_text() {
    const char* const strengths[] = {"easy", "normal", "hard"};
    std::string text;
    for (const player& seat : players) {
        text += (seat.is_computer ? strengths[seat.strength] : std::string("human")) + " ";
        text += "ABCDEF"[seat.colour_index] + std::string(" ");
    }
    return text;
}

std::string turn_text() {
    return "seat" + index_text(turn.current_player, -1) + (turn.turn_revealed ? " revealed" : "") +
           (turn.card_drawn ? " drawn" : "") + (turn.move_timer > 0 ? " moving" : "") +
           (turn.think_timer > 0 ? " thinking" : "") + " winner" +
           index_text(turn.winner, no_winner);
}

// What an act may change beside the picture, by name.
std::map<std::string, std::string> facts_now() {
    std::map<std::string, std::string> facts;
    facts["screen"] = screens.title_menu_open     ? "title"
                      : screens.player_setup_open ? "seats"
                      : screens.map_list_open     ? "maps"
                      : screens.editor_open       ? "editor"
                      : screens.replay_open       ? "replay"
                                                  : "game";
    if (tidings.kind != tiding_failure) {
        facts["told"] = string_of({tidings.text, tidings.length});
    }
    facts["running"] = app.running ? "yes" : "no";
    facts["seats"] = seats_text();
    facts["deck"] = pile_text(deck.cards);
    facts["discarded"] = pile_text(discard_pile.cards);
    facts["tape"] = pile_text(tape) + " head" + index_text(tape_head, -1);
    for (i64 i = 0; i < players.count; ++i) {
        facts["hand" + index_text(i, -1)] = pile_text(players[i].hand);
        facts["goal" + index_text(i, -1)] = goal_text_of(players[i].goal);
    }
    facts["turn"] = turn_text();
    facts["selected"] = index_text(selection.selected_state, no_index) +
                        index_text(selection.target_state, no_index) + " arc" +
                        index_text(selection.selected_transition, no_index) + " card" +
                        index_text(selection.selected_card, no_card);
    facts["camera"] =
        number_text(camera.x) + " " + number_text(camera.y) + " zoom " + number_text(camera.zoom);
    facts["map list"] = std::to_string(selected_entry) + " of " + std::to_string(catalogue_count());
    for (const auto& entry : std::filesystem::recursive_directory_iterator(".")) {
        std::string path = entry.path().string().substr(2);
        if (entry.is_regular_file() && !path.ends_with(".png") && !path.ends_with("info.txt") &&
            !path.ends_with("lock")) {
            std::string& fact = facts[path.substr(0, path.find(".20"))];  // without its date
            fact = replaced(file_get(path), '\n', ';');
        }
    }
    return facts;
}

// The lines that only `after` has, each as often as there, behind a prefix.
std::string lines_added(const lines& before, lines after, const std::string& prefix) {
    for (const std::string& line : before) {
        auto found = std::find(after.begin(), after.end(), line);
        after.erase(found, found == after.end() ? found : found + 1);
    }
    std::string text;
    for (const std::string& line : after) {
        text += prefix + line + "\n";
    }
    return text;
}

// All of it in one line.
std::string lines_removed(const lines& before, const lines& after, const std::string& prefix) {
    std::string text = lines_added(after, before, "; ");
    std::erase(text, '\n');
    return text.empty() ? "" : prefix + text.substr(2) + "\n";
}

struct situation {
    std::map<std::string, std::string> facts = facts_now();
    lines map = lines_of(map_text());
    lines picture = drawn_lines();
};

// What a line tells of: a fact but for its seat, the map, the controls, one sort of picture.
std::string kind_of(const std::string& line) {
    bool control = line.starts_with("  + [") || line.starts_with("  + \"");
    return control ? "control" : line.substr(0, line.find_first_of(" 0123456789:", 4));
}

// The lines of `text` with neighbours of one kind in rows, as on screen.
std::string rows_joined(const std::string& text, std::size_t mark) {
    std::string joined, kind;
    std::size_t width = 0;
    for (const std::string& line : lines_of(text)) {
        bool fits = kind_of(line) == kind && width + line.size() - mark < 98;
        joined += fits ? "; " + line.substr(mark) : (joined == "" ? "" : "\n") + line;
        width = fits ? width + 2 + line.size() - mark : line.size();
        kind = kind_of(line);
    }
    return joined == "" ? "" : joined + "\n";
}

std::string changes_text(const situation& before, const situation& now, const std::string& said) {
    std::string text;
    for (const auto& [name, value] : now.facts) {
        auto earlier = before.facts.find(name);
        if (earlier == before.facts.end() || earlier->second != value) {
            text += "  " + name + ": " + value + "\n";
        }
    }
    for (const auto& [name, value] : before.facts) {
        text += now.facts.contains(name) ? "" : "  no " + name + "\n";
    }
    return lines_added({}, lines_of(said), "  said: ") + rows_joined(text, 2) +
           lines_removed(before.map, now.map, "  map - ") +
           rows_joined(lines_added(before.map, now.map, "  map + "), 8) +
           lines_removed(before.picture, now.picture, "  - ") +
           rows_joined(lines_added(before.picture, now.picture, "  + "), 4);
}

u32 key_of(const std::string& name) {
    const std::map<std::string, u32> codes = {
        {"space", key_space}, {"enter", key_enter},   {"backspace", key_backspace},
        {"ctrl", key_ctrl},   {"escape", key_escape}, {"shift", key_shift},
        {"alt", key_alt},     {"delete", key_delete}, {"comma", key_comma},
        {"f1", key_f1},       {"f2", key_f2},         {"f3", key_f3},
        {"f4", key_f4},       {"f9", key_f9},         {"f11", key_f11},
        {"left", key_left},   {"right", key_right},   {"minus", key_minus},
        {"up", key_up},       {"down", key_down},     {"home", key_home},
        {"end", key_end},     {"slash", key_slash}};
    auto found = codes.find(name);
    return found != codes.end() ? found->second
           : name[0] <= '9'     ? key_0 + static_cast<u32>(name[0] - '0')
                                : key_a + static_cast<u32>(name[0] - 'a');
}

// What tells screens apart that a player walks over.
std::string screen_text() {
    return facts_now()["screen"] + std::to_string(machine_kind) +
           std::to_string(screens.text_entry_open) + std::to_string(goal_editing.goal_dialog_open) +
           std::to_string(turn.turn_revealed);
}

class scenario_test : public screen_test, public testing::WithParamInterface<std::string> {
  protected:
    // Runs the acts of one line; returns what they changed.
    std::string play(const step& s) {
        situation before;
        std::string said = output_of([&] {
            std::istringstream acts(s.acts);
            for (std::string one; std::getline(acts >> std::ws, one, ';');) {
                std::istringstream words(one);
                std::string verb;
                words >> verb;
                act(verb, words, s.file);
            }
        });
        return s.written.starts_with(">>") ? "" : changes_text(before, {}, said);
    }

  private:
    void act(const std::string& verb, std::istringstream& words, const std::string& file) {
        std::string word;
        if (verb == "file") {
            words >> word;
            file_put(word, file);
        } else if (verb == "start") {  // at this time
            headless_set_time(static_cast<u64>(read(words)));
            begin();
            frame();
        } else if (verb == "frames") {
            for (f64 left = read(words); left > 0; --left) {
                frame();
            }
        } else if (verb == "wait") {  // for that seat to have its turn
            f64 seat = read(words);
            for (i64 i = 0; i < 600 && (turn.current_player != seat || turn.move_timer > 0); ++i) {
                frame();
            }
        } else if (verb == "key") {  // one frame each
            while (words >> word) {
                headless_key_press(key_of(word));
                frame();
            }
        } else if (verb == "hold" || verb == "release") {
            words >> word;
            verb == "hold" ? headless_key_hold(key_of(word)) : headless_key_release(key_of(word));
        } else if (verb == "wheel") {
            headless_wheel(read(words));
            frame();
        } else if (verb == "drag") {  // with the middle button, from there by so many pixels
            f64 x = read(words);
            point place = {x, read(words)};
            point_at(place.x, place.y);
            headless_mouse_press(mouse_middle);
            point_at(place.x + read(words), place.y);
            headless_mouse_release(mouse_middle);
            for (i64 left = 3; left > 0; --left) {  // the press, the move, its picture
                frame();
            }
        } else if (verb == "close") {
            headless_close_window();
            frame();
        } else {
            mouse_act(verb, words);
        }
    }

    // The left button "click"s, goes "down" or "up"; the "right" one clicks; or it just "point"s.
    void mouse_act(const std::string& verb, std::istringstream& words) {
        EXPECT_NE(std::string("click right down up point").find(verb), std::string::npos) << verb;
        point place = place_read(words);
        point_at(place.x, place.y);
        u32 button = verb == "right" ? mouse_right : mouse_left;
        if (verb != "up" && verb != "point") {
            headless_mouse_press(button);
        }
        if (verb != "down" && verb != "point") {
            headless_mouse_release(button);
        }
        frame();
        if (verb == "click") {
            frame();  // a button's screen is drawn one frame later
        }
    }

    static f64 read(std::istringstream& words) {
        f64 value = 0;
        words >> value;
        return value;
    }

    // Two numbers, or the label of a button.
    static point place_read(std::istringstream& words) {
        std::string label;
        std::getline(words >> std::ws, label);
        std::string button = drawn("[" + label + "]");
        std::istringstream numbers(button == "" ? label : button.substr(label.size() + 2));
        return {read(numbers), read(numbers)};
    }
};

// In a process and a directory of their own, since time goes on meanwhile.
void walk_everywhere() {
    const std::filesystem::path aside = std::filesystem::current_path() / "aside";
    std::filesystem::create_directory(aside);
    std::filesystem::copy("resources", aside / "resources");
    std::filesystem::current_path(aside);
    const std::string missed = places_not_reached();
    std::fputs(missed.c_str(), stderr);
    std::filesystem::current_path("..");
    std::filesystem::remove_all(aside);
    std::_Exit(missed.empty() ? 0 : 1);
}

// Every file of the folder, by its name.
std::vector<std::string> scenarios() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(scenarios_folder)) {
        if (entry.path().extension() == ".scenario") {
            names.push_back(entry.path().stem());
        }
    }
    return names;
}

TEST_P(scenario_test, Changes) {
    std::string path = std::string(scenarios_folder) + GetParam() + ".scenario";
    std::string anew;
    std::set<std::string> walked;
    for (const step& s : steps_read(file_get(path))) {
        std::string changed = play(s);
        if (app.running && !screens.text_entry_open && walked.insert(screen_text()).second) {
            EXPECT_EXIT(walk_everywhere(), testing::ExitedWithCode(0), "") << s.acts;
        }
        if (std::getenv("QUORREL_RECORD") == nullptr) {
            EXPECT_EQ(changed, s.recorded) << s.acts;
        }
        anew += s.comments + s.written + changed;
    }
    if (std::getenv("QUORREL_RECORD") != nullptr) {
        file_put(path, anew);
    }
}

TEST_P(scenario_test, IsDrawnInPartAsItIsWhole) {
    gl_expect_same([&] {
        for (const step& s : steps_read(file_get(scenarios_folder + GetParam() + ".scenario"))) {
            play(s);
        }
    });
}

INSTANTIATE_TEST_SUITE_P(all, scenario_test, testing::ValuesIn(scenarios()),
                         [](const auto& named) { return named.param; });

}  // namespace
